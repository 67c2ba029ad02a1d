// Conversion of the appliance's text for a terminal. Its text is 8-bit without a known character
// set, and may contain anything.

#ifndef QUILLCTL_DISPLAYED_TEXT_H_
#define QUILLCTL_DISPLAYED_TEXT_H_

#include <cstddef>
#include <string>
#include <string_view>

namespace quillctl {

bool IsUtf8(std::string_view text);
std::string Utf8FromLatin1(std::string_view text);

// Returns the text as UTF-8. Text that is not valid UTF-8 is converted from Latin-1.
std::string Utf8Text(std::string_view text);

// Returns the text as UTF-8 without control characters. They, including 128 to 159, become "\x" and
// two hexadecimal digits, so that no name can control the terminal.
std::string DisplayedText(std::string_view text);

// Returns two hexadecimal digits for each byte.
std::string HexadecimalBytes(std::string_view bytes);

// Returns DisplayedText between double quotes.
std::string Quoted(std::string_view text);

// Returns the number of characters in a result of DisplayedText.
std::size_t DisplayedWidth(std::string_view displayed);

}  // namespace quillctl

#endif  // QUILLCTL_DISPLAYED_TEXT_H_
