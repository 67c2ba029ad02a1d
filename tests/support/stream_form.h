// Stores an object in a stream and loads it from one.

#ifndef QUILLKIT_TESTS_SUPPORT_STREAM_FORM_H_
#define QUILLKIT_TESTS_SUPPORT_STREAM_FORM_H_

#include <string>
#include <string_view>

#include "base/archive.h"

namespace quillkit {

template <class Object>
std::string Stored(Object&& object) {
  std::string bytes;
  Archive archive(&bytes);
  object.Serialize(archive);
  return bytes;
}

// Returns the archive, which shows whether the load failed, and how many bytes it left unread.
template <class Object>
Archive Load(Object& object, std::string_view bytes) {
  Archive archive(bytes);
  object.Serialize(archive);
  return archive;
}

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_SUPPORT_STREAM_FORM_H_
