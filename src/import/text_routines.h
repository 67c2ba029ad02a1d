// Text routines of the converters. Texts are followed by a NUL and are changed in place.

#ifndef QUILLKIT_IMPORT_TEXT_ROUTINES_H_
#define QUILLKIT_IMPORT_TEXT_ROUTINES_H_

#include "import/line_reader.h"
#include "platform/message_pump.h"

namespace quillkit {

// Splits a text at a separator outside double quotes, like a tokenizer: with a text, starts at its
// beginning; with null, continues after the last field. A field ends at the next separator, which
// becomes a NUL, or at the end of the text; two adjacent separators have an empty field between
// them. Quotes stay in the field. The separator is compared before the quote: if it is the double
// quote, a field ends at the next one.
//
// Returns the field, or null if there is none: after the last field, or if this one has an unclosed
// quote, which leaves the text unchanged and ends the splitting. The process has one position, so
// splittings must not overlap.
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
