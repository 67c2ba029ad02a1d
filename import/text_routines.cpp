#include "import/text_routines.h"

#include <algorithm>
#include <cstring>

namespace quillkit {
namespace {

// Where NextQuotedField goes on; null when its fields are used up.
char* nextFieldPosition = nullptr;

}  // namespace

char* NextQuotedField(char* text, char separator) {
  if (text != nullptr) nextFieldPosition = text;
  if (nextFieldPosition == nullptr) return nullptr;

  // The text is measured at every call, since callers change it between calls.
  FieldSplitter fields({nextFieldPosition, std::strlen(nextFieldPosition)});
  TextSpan field;
  const bool found = fields.Next(separator, &field);
  nextFieldPosition = fields.IsUsedUp() ? nullptr : fields.Rest().data();
  if (!found) return nullptr;
  field.data()[field.size()] = '\0';  // the separator, or the NUL that is there already
  return field.data();
}

void StripChar(char removed, char* text) {
  // A text ends at its first NUL, so there is none to remove.
  if (text == nullptr || removed == '\0') return;
  const TextSpan left = StripChar(removed, TextSpan(text, std::strlen(text)));
  left.data()[left.size()] = '\0';
}

TextSpan StripChar(char removed, TextSpan text) {
  const auto end = std::remove(text.begin(), text.end(), removed);
  return text.first(static_cast<std::size_t>(end - text.begin()));
}

void PumpPendingMessages(WindowHandle window, std::int32_t restoreCursor) {
  if (window == nullptr) return;
  PumpThreadMessages(window);
  if (restoreCursor != 0) RestoreWaitCursor();
}

}  // namespace quillkit
