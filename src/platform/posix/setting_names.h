// How the names of keys and values become names of files, and what else stands among them.
//
//   key    the name, with the bytes escaped that a file's name must not have or that would make it
//          look like one of the others
//   value  "=" and the name in the same form
//   draft  a value that is being written (platform/draft.h)

#ifndef QUILLKIT_PLATFORM_POSIX_SETTING_NAMES_H_
#define QUILLKIT_PLATFORM_POSIX_SETTING_NAMES_H_

#include <optional>
#include <string>
#include <string_view>

namespace quillkit {

// The file of the value.
std::string ValueFileName(std::string_view value);

// The folder of the key at `path`; empty where the user has no configuration folder.
std::string KeyFolder(std::string_view path);

// The key whose folder has this name, or none where it is not what a key of any name would have.
std::optional<std::string> KeyOfFolderName(std::string_view folder);

// Whether a file of this name is a value or a draft.
bool IsValueFileName(std::string_view file);

}  // namespace quillkit

#endif  // QUILLKIT_PLATFORM_POSIX_SETTING_NAMES_H_
