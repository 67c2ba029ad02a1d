#include "import/text_routines.h"

#include <algorithm>
#include <cstring>

namespace quillkit {
namespace {

// Where NextQuotedField goes on; null when the fields are used up.
char* nextFieldPosition = nullptr;

}  // namespace

char* NextQuotedField(char* text, char separator) {
  if (text != nullptr) nextFieldPosition = text;
  char* const field = nextFieldPosition;
  if (field == nullptr) return nullptr;

  nextFieldPosition = nullptr;
  char* end = field;
  for (; *end != '\0' && *end != separator; ++end) {
    if (*end != '"') continue;
    end = std::strchr(end + 1, '"');
    if (end == nullptr) return nullptr;
  }
  if (*end != '\0') {
    *end = '\0';
    nextFieldPosition = end + 1;
  }
  return field;
}

void StripChar(char removed, char* text) {
  *std::remove(text, text + std::strlen(text), removed) = '\0';
}

void PumpPendingMessages(WindowHandle window, std::int32_t restoreCursor) {
  if (window == nullptr) return;
  PumpThreadMessages(window);
  if (restoreCursor != 0) RestoreWaitCursor();
}

}  // namespace quillkit
