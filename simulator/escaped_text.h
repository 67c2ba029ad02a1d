// Arbitrary bytes as a line of ASCII, for the files of the simulator.
//
// A backslash and every byte that is not printable ASCII become "\x" and two hexadecimal digits.
// Two or more consecutive zero bytes become "\z", their number and ";". Other bytes are unchanged.

#ifndef QUILLKIT_SIMULATOR_ESCAPED_TEXT_H_
#define QUILLKIT_SIMULATOR_ESCAPED_TEXT_H_

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace quillbox {

// The byte as two hexadecimal digits.
std::string HexadecimalByte(char c);

// Also escapes the characters in `also`.
std::string Escaped(std::string_view bytes, std::string_view also = {});

// Returns the bytes, or nothing for a text that is not in this format and for more than `limit`
// bytes.
std::optional<std::string> Unescaped(std::string_view text, std::size_t limit);

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_ESCAPED_TEXT_H_
