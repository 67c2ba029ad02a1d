// Small files that are only ever seen whole: replaced through a draft (platform/draft.h), never
// written in place.
//
// Both functions return 0 or an errno value.

#ifndef QUILLKIT_PLATFORM_POSIX_WHOLE_FILE_H_
#define QUILLKIT_PLATFORM_POSIX_WHOLE_FILE_H_

#include <cstddef>
#include <cstdint>

namespace quillkit {

// Puts a file of these bytes, the user's alone, in the place of what has this name in the folder.
// It is on the disk before it gets its name.
int ReplaceFile(int folder, const char* name, const void* bytes, std::size_t size);

// Copies the file's bytes into `bytes`, which has room for `*size`; `*size` becomes the number that
// it has. EOVERFLOW, and nothing copied, when they are more than that; ENOENT also for what is no
// plain file.
int ReadFile(int folder, const char* name, void* bytes, std::uint32_t* size);

}  // namespace quillkit

#endif  // QUILLKIT_PLATFORM_POSIX_WHOLE_FILE_H_
