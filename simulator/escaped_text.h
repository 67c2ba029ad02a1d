// Bytes of any kind as a line of ASCII: for the files that the simulator keeps.
//
// A backslash, and whatever is no printable ASCII, becomes "\x" and two hexadecimal digits; two or
// more bytes of zero in a row become "\z", their number and ";". All else stands for itself.

#ifndef QUILLKIT_SIMULATOR_ESCAPED_TEXT_H_
#define QUILLKIT_SIMULATOR_ESCAPED_TEXT_H_

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace quillbox {

// Characters of `also` are escaped too.
std::string Escaped(std::string_view bytes, std::string_view also = {});

// The bytes, or nothing for a text that Escaped does not give or one of more bytes than `limit`.
std::optional<std::string> Unescaped(std::string_view text, std::size_t limit);

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_ESCAPED_TEXT_H_
