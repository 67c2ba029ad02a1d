// What surrounds the work of every exported function.

#ifndef QUILLKIT_TOOLKIT_CALL_FRAME_H_
#define QUILLKIT_TOOLKIT_CALL_FRAME_H_

#include <string>
#include <string_view>

#include "base/secret.h"
#include "platform/call_scope.h"

namespace quillkit {

// Does `work` inside the library's own context and gives its result. Each text argument reaches it
// as a private copy, which ends at the first NUL: the caller's string may be the text of an object
// that the work changes. The copies are wiped: one may be a password. An exception from the work
// passes through.
template <class Work, class... Texts>
auto InFrame(Work work, const Texts&... texts) {
  const CallScope scope;
  return work(SecretText(std::string_view(texts).substr(0, texts.find('\0')))...);
}

}  // namespace quillkit

#endif  // QUILLKIT_TOOLKIT_CALL_FRAME_H_
