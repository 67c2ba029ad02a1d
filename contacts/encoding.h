// The character encodings of contact files.

#ifndef CONTACTS_ENCODING_H_
#define CONTACTS_ENCODING_H_

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace contacts {

// kLikelyWindows1252 is Windows-1252 without evidence: what contains a character of UTF-8 that is
// not ASCII is not valid.
enum class Encoding { kUtf8, kUtf16Le, kUtf16Be, kWindows1252, kLatin1, kLikelyWindows1252 };

bool IsUtf16(Encoding encoding);

// The names "utf-8", "utf-16le", "utf-16be", "windows-1252" and "latin-1".
std::string_view WordOf(Encoding encoding);
std::optional<Encoding> EncodingOf(std::string_view word);
std::vector<std::string> EncodingWords();

inline constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

// The encoding whose byte order mark begins the text, with the size of the mark.
struct Mark {
  std::optional<Encoding> encoding;
  std::size_t size = 0;
};
Mark FindMark(std::string_view bytes);

bool IsUtf8(std::string_view text);

// Appends the bytes as UTF-8. What is not valid in their encoding becomes U+FFFD. Returns whether
// all of it is valid. Windows-1252 has five bytes that are not.
bool AppendUtf8(std::string& text, std::string_view bytes, Encoding from);

// Appends the character of a Windows-1252 byte; of the five undefined bytes, that of Latin-1.
void AppendWindows1252Character(std::string& text, char byte);

// Appends valid UTF-8 as Windows-1252. Returns false at the first character that has no byte there.
bool AppendWindows1252(std::string& bytes, std::string_view utf8);

// Returns the longest beginning of valid UTF-8 that has at most `size` bytes and divides no
// character.
std::string_view CutUtf8(std::string_view utf8, std::size_t size);

}  // namespace contacts

#endif  // CONTACTS_ENCODING_H_
