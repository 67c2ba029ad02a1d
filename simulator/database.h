// The database commands of IMSPIOCtl 7: back up, restore, check.

#ifndef QUILLKIT_SIMULATOR_DATABASE_H_
#define QUILLKIT_SIMULATOR_DATABASE_H_

#include <string_view>

#include "simulator/protocol.h"
#include "simulator/store.h"

namespace quillbox {

// The text of a command: up to its NUL, and never past the 400 bytes that a command may have.
std::string_view CommandText(const char* text);

// Runs a command: a word of 14 characters, and for the first two words a first text, a comma and a
// second text. A backup copies all books but the log under its first text; a restore puts the copy
// back, and changes nothing with code 4 when there is none. Second texts are accepted and mean
// nothing. 17 for another word.
Status RunDatabaseCommand(Contents& contents, std::string_view command);

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_DATABASE_H_
