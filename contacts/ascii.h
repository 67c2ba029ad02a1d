// The case of ASCII letters, and white space, independent of the locale.

#ifndef CONTACTS_ASCII_H_
#define CONTACTS_ASCII_H_

#include <algorithm>
#include <string>
#include <string_view>

namespace contacts {

inline char LowerCase(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

inline std::string LowerCase(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) c = LowerCase(c);
  return lower;
}

inline bool EqualInAnyCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return LowerCase(x) == LowerCase(y); });
}

// Returns whether the text begins with `beginning`, which is in lower case.
inline bool BeginsInAnyCase(std::string_view text, std::string_view beginning) {
  return text.size() >= beginning.size() &&
         std::equal(beginning.begin(), beginning.end(), text.begin(),
                    [](char wanted, char c) { return LowerCase(c) == wanted; });
}

inline constexpr std::string_view kWhiteSpace = " \t\r\n";

inline bool IsBlank(std::string_view text) {
  return text.find_first_not_of(kWhiteSpace) == text.npos;
}

// Returns the text without white space at both ends.
inline std::string_view Trimmed(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(kWhiteSpace), text.size()));
  return text.substr(0, text.find_last_not_of(kWhiteSpace) + 1);
}

}  // namespace contacts

#endif  // CONTACTS_ASCII_H_
