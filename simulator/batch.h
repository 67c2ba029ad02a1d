// The script language of IMSPBatchConfiguration.

#ifndef QUILLKIT_SIMULATOR_BATCH_H_
#define QUILLKIT_SIMULATOR_BATCH_H_

#include <string_view>

#include "simulator/protocol.h"
#include "simulator/store.h"

namespace quillbox {

// Runs a script file for a user, line by line. Lines end with LF or CR LF; blank lines are skipped.
// The first line that fails ends the run; the effects of earlier lines stay.
//
// For ADMINISTRATOR, a line is one of these, each field a text in double quotes:
//
//   CA book                                                    clears the book
//   SE emailab "name" "address"                                creates or replaces one entry
//   SE faxab "name" "number" "third"
//   SE printersab "name" "description" "model"
//   SE usersab "name" "password" "third" "fourth" N N N N
//
// The four numbers of a user are its on-off state and its one-time mark (0 or 1), and its high and
// low nibbles (0 to 15).
//
// For any other user, each pair of lines is the name and the address of an entry of the user's
// private book, created or replaced. The address may be blank. A blank line where a name is
// expected is skipped.
//
// Returns 0; 17 for a file that cannot be read, for any other line, and for a name without an
// address; 7 for an empty name between quotes, for a text or number that does not fit its field,
// and for a line that is too long (simulator/text_lines.h); 24 for a new entry of a full book.
Status RunBatch(Store& store, const Limits& limits, std::string_view user, const char* path);

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_BATCH_H_
