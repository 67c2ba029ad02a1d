// Small files that a reader always finds complete: they are replaced through a draft
// (platform/draft.h), never written in place.
//
// Both functions return 0 or an errno value.

#ifndef QUILLKIT_PLATFORM_POSIX_WHOLE_FILE_H_
#define QUILLKIT_PLATFORM_POSIX_WHOLE_FILE_H_

#include <cstddef>
#include <cstdint>

namespace quillkit {

// Creates or replaces the file of this name in the folder. Only the user can access it. The bytes
// are on the disk before the file gets its name.
int ReplaceFile(int folder, const char* name, const void* bytes, std::size_t size);

// Copies the bytes of a file to `bytes`. `*size` is the size of `bytes` and receives the size of
// the file. Returns EOVERFLOW and copies nothing if the file is larger; ENOENT also if it is not a
// regular file.
int ReadFile(int folder, const char* name, void* bytes, std::uint32_t* size);

}  // namespace quillkit

#endif  // QUILLKIT_PLATFORM_POSIX_WHOLE_FILE_H_
