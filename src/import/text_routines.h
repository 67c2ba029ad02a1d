// Text routines of the converters.

#ifndef QUILLKIT_IMPORT_TEXT_ROUTINES_H_
#define QUILLKIT_IMPORT_TEXT_ROUTINES_H_

#include <cstddef>
#include <cstring>

#include "import/line_reader.h"
#include "platform/message_pump.h"

namespace quillkit {

// Returns the position of the first `c` from `begin` on, or `end`.
inline char* FindCharacter(char* begin, char c, char* end) {
  void* found = std::memchr(begin, c, static_cast<std::size_t>(end - begin));
  return found != nullptr ? static_cast<char*>(found) : end;
}

// A field of a line. The text is null if there is none.
struct QuotedField {
  TextSpan text;
  bool hasQuotes = false;  // whether the text contains double quotes
};

// Splits a text into fields.
class FieldSplitter {
 public:
  explicit FieldSplitter(TextSpan text) { Restart(text); }

  // Continues with another text.
  void Restart(TextSpan text) {
    next = text.data();
    textEnd = next + text.size();
  }

  // Returns the next field. It ends at the next separator outside double quotes, or at the end of
  // the text. Two adjacent separators have an empty field between them. Quotes stay in the field.
  // If the separator is the double quote, a field ends at the next double quote.
  //
  // The text is null after the last field, for a field with an unclosed quote, and for all fields
  // after that one.
  QuotedField NextQuotedField(char separator) {
    char* const field = next;
    if (field == nullptr) return {};
    next = nullptr;
    bool hasQuotes = false;
    char* at = field;
    char* end = nullptr;  // the first separator after the quotes so far
    while (at != end) {
      if (at != textEnd && *at == '"' && separator != '"') {
        at = FindCharacter(at + 1, '"', textEnd);
        if (at == textEnd) return {};
        ++at;
        hasQuotes = true;
      }
      if (end == nullptr || end < at) end = FindCharacter(at, separator, textEnd);
      if (at != end) at = FindCharacter(at, '"', end);
    }
    if (end != textEnd) next = end + 1;
    return {{field, end}, hasQuotes};
  }

 private:
  char* next = nullptr;  // null after the last field
  char* textEnd = nullptr;
};

// Removes every occurrence of `removed` and moves the following text down. Returns the remaining
// text.
TextSpan StripChar(char removed, TextSpan text);

// Handles the pending messages of the thread like PumpThreadMessages, then restores the wait cursor
// of the application if `restoreCursor` is set. Does nothing for a null window.
// The converters call it once for each line of the source.
inline void PumpPendingMessages(WindowHandle window, bool restoreCursor) {
  if (window == nullptr) return;
  PumpThreadMessages(window);
  if (restoreCursor) RestoreWaitCursor();
}

}  // namespace quillkit

#endif  // QUILLKIT_IMPORT_TEXT_ROUTINES_H_
