// The code that every exported function runs before and after its work.

#ifndef QUILLKIT_TOOLKIT_CALL_FRAME_H_
#define QUILLKIT_TOOLKIT_CALL_FRAME_H_

#include <string>
#include <string_view>

#include "base/secret.h"
#include "platform/thread_timer.h"

namespace quillkit {

// Runs the due timers, then calls `work` and returns its result. `work` gets a copy of each text
// argument, up to the first NUL: the text may belong to an object that `work` changes. The copies
// are wiped: one may be a password. Exceptions of `work` pass through.
template <class Work, class... Texts>
auto InFrame(Work work, const Texts&... texts) {
  EnterLibrary();
  return work(SecretText(std::string_view(texts).substr(0, texts.find('\0')))...);
}

}  // namespace quillkit

#endif  // QUILLKIT_TOOLKIT_CALL_FRAME_H_
