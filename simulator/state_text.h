// What the appliance's books hold, and their backups, as lines of ASCII that a person can read and
// compare:
//
//   quillbox state 1
//   book 1 "EMAILAB" ""                     its kind, its name, whose it is
//   entry "Agnes\z27;agnes@..."             each of its records, in the form of escaped_text.h
//   backup "nightly"                        the books behind it are the backup's
//   end
//
// Lines end with LF or CR LF, and blank ones are passed over. Without its last line the text was
// cut short, and is not taken. The accounts that every appliance has need no entry.

#ifndef QUILLKIT_SIMULATOR_STATE_TEXT_H_
#define QUILLKIT_SIMULATOR_STATE_TEXT_H_

#include <iosfwd>
#include <string>

#include "simulator/store.h"
#include "simulator/text_lines.h"

namespace quillbox {

void WriteState(std::ostream& out, const Contents& contents);

// Fills contents that are as delivered. An empty text, or what is wrong with the lines and where,
// with the contents then of no use. Every record goes through Store::Put, so that whatever the
// lines hold the store's invariants do too.
std::string ReadState(TextLines& lines, Contents& contents);

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_STATE_TEXT_H_
