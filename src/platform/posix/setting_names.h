// The file names of keys and values:
//
//   key    the name; bytes that a file name cannot contain, or that would make it look like one of
//          the other forms, are escaped
//   value  "=" and the name in the same form
//   draft  a value that is being written (platform/draft.h)

#ifndef QUILLKIT_PLATFORM_POSIX_SETTING_NAMES_H_
#define QUILLKIT_PLATFORM_POSIX_SETTING_NAMES_H_

#include <optional>
#include <string>
#include <string_view>

namespace quillkit {

// The file name of a value.
std::string ValueFileName(std::string_view value);

// The folder of the key at `path`, or an empty path if the user has no configuration folder.
std::string KeyFolder(std::string_view path);

// The key whose folder has this name, or nothing if no key has it.
std::optional<std::string> KeyOfFolderName(std::string_view folder);

// Whether a file of this name is a value or a draft.
bool IsValueFileName(std::string_view file);

}  // namespace quillkit

#endif  // QUILLKIT_PLATFORM_POSIX_SETTING_NAMES_H_
