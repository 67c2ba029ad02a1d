// Small files that are only ever seen whole: replaced by a rename, never written in place.
//
// Both functions give 0 or an errno value.

#ifndef QUILLKIT_PLATFORM_POSIX_WHOLE_FILE_H_
#define QUILLKIT_PLATFORM_POSIX_WHOLE_FILE_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace quillkit {

// What the name of a file that is being written begins with; a crash may leave one behind.
inline constexpr std::string_view kDraftPrefix = ".new-";

// A draft's name: the prefix, this process and the mark that tells it from the process's others.
std::string DraftName(std::string_view mark);

// Puts a file of these bytes in the place of what has this name in the folder. It is on the disk
// before it gets its name.
int ReplaceFile(int folder, const char* name, const void* bytes, std::size_t size);

// Copies the file's bytes into `bytes`, which has room for `*size`; `*size` becomes the number that
// it has. EOVERFLOW, and nothing copied, when they are more than that; ENOENT also for what is no
// plain file.
int ReadFile(int folder, const char* name, void* bytes, std::uint32_t* size);

}  // namespace quillkit

#endif  // QUILLKIT_PLATFORM_POSIX_WHOLE_FILE_H_
