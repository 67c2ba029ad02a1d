#include "import/text_routines.h"

#include <algorithm>
#include <cstring>

namespace quillkit {
namespace {

// Where NextQuotedField goes on; null when the fields are used up.
char* nextFieldPosition = nullptr;

// The first separator in the text, or the text's end.
char* FindSeparator(char* text, char separator) {
  char* const found = std::strchr(text, separator);
  return found != nullptr ? found : text + std::strlen(text);
}

char* FindQuote(char* from, const char* end) {
  return static_cast<char*>(std::memchr(from, '"', static_cast<std::size_t>(end - from)));
}

}  // namespace

TextSpan NextField(char** position, char separator) {
  char* const field = *position;
  if (field == nullptr) return {};

  *position = nullptr;
  char* end = FindSeparator(field, separator);
  for (char* from = field; (from = FindQuote(from, end)) != nullptr;) {
    from = std::strchr(from + 1, '"');
    if (from == nullptr) return {};
    if (++from > end) end = FindSeparator(from, separator);
  }
  if (*end != '\0') {
    *end = '\0';
    *position = end + 1;
  }
  return {field, end};
}

char* NextQuotedField(char* text, char separator) {
  if (text != nullptr) nextFieldPosition = text;
  return NextField(&nextFieldPosition, separator).data();
}

void StripChar(char removed, char* text) {
  char* const first = std::strchr(text, removed);
  if (first == nullptr) return;
  *std::remove(first, first + std::strlen(first), removed) = '\0';
}

}  // namespace quillkit
