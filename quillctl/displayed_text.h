// Texts of the appliance made fit for a terminal. They are 8-bit, without a character set, and come
// from outside.

#ifndef QUILLCTL_DISPLAYED_TEXT_H_
#define QUILLCTL_DISPLAYED_TEXT_H_

#include <cstddef>
#include <string>
#include <string_view>

namespace quillctl {

bool IsUtf8(std::string_view text);
std::string Utf8FromLatin1(std::string_view text);

// The text as UTF-8. One that is valid UTF-8 stays as it is; any other is read as Latin-1.
std::string Utf8Text(std::string_view text);

// The same for a terminal. Control characters, those of 128 to 159 included, become "\x" and two
// digits, so that no name moves its cursor.
std::string DisplayedText(std::string_view text);

// The same between double quotes.
std::string Quoted(std::string_view text);

// The number of characters of a text that DisplayedText gave.
std::size_t DisplayedWidth(std::string_view displayed);

}  // namespace quillctl

#endif  // QUILLCTL_DISPLAYED_TEXT_H_
