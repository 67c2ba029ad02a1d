// The routines that the converters share. Texts have a NUL behind them and are changed in place.

#ifndef QUILLKIT_IMPORT_TEXT_ROUTINES_H_
#define QUILLKIT_IMPORT_TEXT_ROUTINES_H_

#include "import/line_reader.h"
#include "platform/message_pump.h"

namespace quillkit {

// Splits a text at a separator that does not count between double quotes, in the manner of a
// tokenizer: with a text the splitting begins at its front, with null it goes on where the last
// call stopped. A field runs to the next separator, which becomes a NUL, or to the end of the text;
// two adjacent separators have an empty field between them. Quotes stay in the field. The separator
// is looked for before the quote: a separator that is the double quote simply stops at the next
// one.
//
// Gives the field; null when there is none: the last one was taken, or this one has a quote that is
// not closed, which leaves the text as it was and ends the fields for good. There is one position
// for the whole process, so splittings must not overlap.
TextSpan NextQuotedField(char* text, char separator);

// Removes every occurrence of `removed`, by moving down what follows it, and gives what is left. No
// NUL is written behind that.
TextSpan StripChar(char removed, TextSpan text);

// Handles the thread's pending messages as PumpThreadMessages does, and afterwards restores the
// application's wait cursor if `restoreCursor` is set. Does nothing for a null window.
// Converters call it once for every line of input.
inline void PumpPendingMessages(WindowHandle window, bool restoreCursor) {
  if (window == nullptr) return;
  PumpThreadMessages(window);
  if (restoreCursor) RestoreWaitCursor();
}

}  // namespace quillkit

#endif  // QUILLKIT_IMPORT_TEXT_ROUTINES_H_
