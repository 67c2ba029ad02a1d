// Files that are written from one piece of bytes.

#ifndef QUILLKIT_PLATFORM_WRITTEN_FILE_H_
#define QUILLKIT_PLATFORM_WRITTEN_FILE_H_

#include <string>
#include <string_view>

namespace quillkit {

// Writes the file in place. False where not all of it could be written.
bool WriteFileInPlace(const std::string& path, std::string_view bytes);

// Writes a file beside its place and moves it there, with the rights of the one that it replaces. A
// link stays, and what it leads to changes. False, with all as it was, where that cannot be done:
// for a link that leads nowhere, too.
bool WriteFileWhole(const std::string& path, std::string_view bytes);

}  // namespace quillkit

#endif  // QUILLKIT_PLATFORM_WRITTEN_FILE_H_
