// Files that are read and written whole.

#ifndef QUILLKIT_EXAMPLES_TEXT_FILE_H_
#define QUILLKIT_EXAMPLES_TEXT_FILE_H_

#include <cstddef>
#include <string>

namespace quillctl {

// Throws a UsageError for a file that cannot be read or has more bytes than `most`.
std::string ReadTextFile(const std::string& path, std::size_t most);

// Writes the file beside its place and then moves it there, so that it is written whole or, with a
// Refusal, not at all. A UsageError where a file stands there with ".new" behind its name. What is
// there and is no plain file, as a device, is written in place.
void WriteTextFile(const std::string& path, const std::string& text);

}  // namespace quillctl

#endif  // QUILLKIT_EXAMPLES_TEXT_FILE_H_
