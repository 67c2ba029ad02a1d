// The text routines that converters share, on NUL-terminated text.

#ifndef QUILLKIT_IMPORT_TEXT_ROUTINES_H_
#define QUILLKIT_IMPORT_TEXT_ROUTINES_H_

#include <cstdint>

#include "import/field_splitter.h"
#include "platform/message_pump.h"

namespace quillkit {

// Splits as FieldSplitter does, in the manner of a tokenizer: with a text the splitting begins at
// its front, with null it goes on where the last call stopped. The separator behind the field is
// overwritten with a NUL; quotes stay in the field. Null when there is no field; the calls after
// that give null too. What is returned points into the text.
// There is one position for the whole process, so splittings must not overlap.
char* NextQuotedField(char* text, char separator);

// Removes every occurrence of `removed` from `text`, in place. A null text is ignored.
void StripChar(char removed, char* text);

// The same on a text with a known end; gives what is left, at the same place.
TextSpan StripChar(char removed, TextSpan text);

// Removes and handles the thread's pending messages for `window`, and afterwards restores the
// application's wait cursor if `restoreCursor` is nonzero. Does nothing for a null window.
// Converters call it once for every line of input.
void PumpPendingMessages(WindowHandle window, std::int32_t restoreCursor);

}  // namespace quillkit

#endif  // QUILLKIT_IMPORT_TEXT_ROUTINES_H_
