#include "import/text_routines.h"

#include <algorithm>
#include <cstring>

namespace quillkit {
namespace {

// Where NextQuotedField continues; null after the last field.
char* nextFieldPosition = nullptr;

}  // namespace

TextSpan NextQuotedField(char* text, char separator) {
  if (text != nullptr) nextFieldPosition = text;
  char* const field = nextFieldPosition;
  if (field == nullptr) return {};

  nextFieldPosition = nullptr;
  char* end = field;
  for (; *end != '\0' && *end != separator; ++end) {
    if (*end != '"') continue;
    end = std::strchr(end + 1, '"');
    if (end == nullptr) return {};
  }
  if (*end != '\0') {
    *end = '\0';
    nextFieldPosition = end + 1;
  }
  return {field, end};
}

TextSpan StripChar(char removed, TextSpan text) {
  auto* const first = static_cast<char*>(std::memchr(text.data(), removed, text.size()));
  if (first == nullptr) return text;
  return {text.begin(), std::remove(text.begin() + (first - text.data()), text.end(), removed)};
}

}  // namespace quillkit
