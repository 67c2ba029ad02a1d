// Text routines of the converters. Texts are followed by a NUL and are changed in place.

#ifndef QUILLKIT_IMPORT_TEXT_ROUTINES_H_
#define QUILLKIT_IMPORT_TEXT_ROUTINES_H_

#include "import/line_reader.h"
#include "platform/message_pump.h"

namespace quillkit {

// Returns the next field of a text, like strtok: pass the text for its first field, then null for
// each further one. A field ends at the next separator outside double quotes, which becomes a NUL,
// or at the end of the text. Two adjacent separators have an empty field between them. Quotes stay
// in the field. If the separator is the double quote, a field ends at the next double quote.
//
// Returns null after the last field. Also returns null for a field with an unclosed quote, which
// stays unchanged, and for all fields after it. The process has one position: only one text can be
// split at a time.
TextSpan NextQuotedField(char* text, char separator);

// Removes every occurrence of `removed` and moves the following text down. Returns the remaining
// text; no NUL is written after it.
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
