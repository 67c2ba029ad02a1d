// Case of ASCII letters, independent of the locale.

#ifndef CONTACTS_LOWER_CASE_H_
#define CONTACTS_LOWER_CASE_H_

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

// Returns whether the text begins with `beginning`, which is in lower case.
inline bool BeginsInAnyCase(std::string_view text, std::string_view beginning) {
  return text.size() >= beginning.size() &&
         std::equal(beginning.begin(), beginning.end(), text.begin(),
                    [](char wanted, char c) { return LowerCase(c) == wanted; });
}

}  // namespace contacts

#endif  // CONTACTS_LOWER_CASE_H_
