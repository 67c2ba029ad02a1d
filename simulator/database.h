// The database commands of IMSPIOCtl 7: back up, restore, check.

#ifndef QUILLKIT_SIMULATOR_DATABASE_H_
#define QUILLKIT_SIMULATOR_DATABASE_H_

#include <string_view>

#include "simulator/protocol.h"
#include "simulator/store.h"

namespace quillbox {

// The text of a command: up to its NUL, at most 400 bytes.
std::string_view CommandText(const char* text);

// Runs a command: a word of 14 characters; for the first two words also a first text, a comma and a
// second text, which is ignored. A backup copies all books except the log under its first text. A
// restore puts the copy back. Returns 0; 4 if there is no such backup, which changes nothing; 17
// for any other word.
Status RunDatabaseCommand(Contents& contents, std::string_view command);

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_DATABASE_H_
