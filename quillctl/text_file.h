// Files that are read and written whole.

#ifndef QUILLKIT_EXAMPLES_TEXT_FILE_H_
#define QUILLKIT_EXAMPLES_TEXT_FILE_H_

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace quillctl {

// The bytes of a file, or none where it cannot be read. Of one that has more than `most` no more is
// read than tells so: what comes is longer than that.
std::optional<std::string> ReadBytes(const std::string& path, std::size_t most);

// Throws a UsageError for a file that cannot be read or has more bytes than `most`.
std::string ReadTextFile(const std::string& path, std::size_t most);

// Writes the file whole or, with a Refusal, not at all: for a link that leads nowhere, too. What is
// there and is no plain file, as a device, is written in place.
void WriteTextFile(const std::string& path, const std::string& text);

}  // namespace quillctl

#endif  // QUILLKIT_EXAMPLES_TEXT_FILE_H_
