// Writing a whole file at once.

#ifndef QUILLKIT_PLATFORM_WRITTEN_FILE_H_
#define QUILLKIT_PLATFORM_WRITTEN_FILE_H_

#include <string>
#include <string_view>

#include "platform/draft.h"

namespace quillkit {

// Overwrites the file in place. Returns false if not all of it could be written.
bool WriteFileInPlace(const std::string& path, std::string_view bytes);

// Replaces a file as ReplaceFileAt does. If `path` is a link, replaces its target. Returns false
// and changes nothing on failure, or if the link has no target.
bool WriteFileWhole(const std::string& path, std::string_view bytes,
                    Readers readers = Readers::kUsual);

}  // namespace quillkit

#endif  // QUILLKIT_PLATFORM_WRITTEN_FILE_H_
