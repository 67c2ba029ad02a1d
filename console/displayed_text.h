// Conversion of the appliance's text for a terminal. Its text is 8-bit without a known character
// set, and may contain anything.

#ifndef CONSOLE_DISPLAYED_TEXT_H_
#define CONSOLE_DISPLAYED_TEXT_H_

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace console {

// The names of the character sets that SetDisplayEncoding accepts.
std::vector<std::string> DisplayEncodings();

// Sets the character set of all text: "utf-8", "windows-1252" or "latin-1".
void SetDisplayEncoding(std::string_view name);

// Returns the text as UTF-8. Unless SetDisplayEncoding was called, text that is not valid UTF-8 is
// converted from Windows-1252; its five undefined bytes become control characters, as in Latin-1.
// If the text is UTF-8 by SetDisplayEncoding, what is not valid becomes U+FFFD.
std::string Utf8Text(std::string_view text);

// Returns the text as UTF-8 without control characters. They, including 128 to 159, become "\x" and
// two hexadecimal digits, so that no name can control the terminal.
std::string DisplayedText(std::string_view text);

// Returns two hexadecimal digits for each byte.
std::string HexadecimalBytes(std::string_view bytes);

// Returns the names that a typed one can mean: the name itself and, if it is UTF-8 beyond ASCII and
// has a form in Windows-1252, that form. A terminal sends UTF-8, but an appliance may store another
// character set.
std::vector<std::string> FormsOf(const std::string& typed);

// Returns the first form that `exists` accepts, or the name as typed if it accepts none. A name
// that has no other form is returned without a call of `exists`.
std::string StoredName(const std::string& typed,
                       const std::function<bool(const std::string&)>& exists);

// Returns DisplayedText between double quotes.
std::string Quoted(std::string_view text);

// Returns text such as "1 key" or "2 keys". An empty `plural` is the singular with an "s".
std::string Counted(std::size_t count, const std::string& singular, const std::string& plural = {});

// Returns the number of characters in a result of DisplayedText.
std::size_t DisplayedWidth(std::string_view displayed);

// Returns a result of DisplayedText cut to `width` characters. If it is longer, the last one is
// "…".
std::string CutDisplayed(const std::string& displayed, std::size_t width);

}  // namespace console

#endif  // CONSOLE_DISPLAYED_TEXT_H_
