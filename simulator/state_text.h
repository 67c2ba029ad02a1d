// The contents of all books and their backups as lines of ASCII, for people to read and compare:
//
//   quillbox state 1
//   book 1 "EMAILAB" ""                     kind, name, user
//   entry "Agnes\z27;agnes@..."             a record of the book, in the format of escaped_text.h
//   backup "nightly"                        the following books belong to this backup
//   end
//
// Lines end with LF or CR LF; blank lines are skipped. A text without its last line is truncated
// and rejected. The three permanent accounts need no entry.

#ifndef QUILLKIT_SIMULATOR_STATE_TEXT_H_
#define QUILLKIT_SIMULATOR_STATE_TEXT_H_

#include <iosfwd>
#include <string>

#include "simulator/store.h"
#include "simulator/text_lines.h"

namespace quillbox {

void WriteState(std::ostream& out, const Contents& contents);

// Fills contents that are in the initial state. Returns an empty text, or the line and description
// of an error; then discard the contents. Every record passes through Store::Put, so that the
// invariants of the store hold for any input.
std::string ReadState(TextLines& lines, Contents& contents);

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_STATE_TEXT_H_
