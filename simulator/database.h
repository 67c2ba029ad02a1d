// The database commands of IMSPIOCtl 7: back up, restore, check.

#ifndef QUILLKIT_SIMULATOR_DATABASE_H_
#define QUILLKIT_SIMULATOR_DATABASE_H_

#include <string_view>

#include "simulator/protocol.h"
#include "simulator/store.h"

namespace quillbox {

// The text of a command: up to its NUL, at most 400 bytes.
std::string_view CommandText(const char* text);

// Runs a command, which begins with a word of 14 characters:
//   the backup word    stores a copy of all books except the log under the first text
//   the restore word   replaces the books by that copy; returns 4 and changes nothing without one
//   the check word     does nothing
// For the first two, the first text, a comma and an ignored second text follow the word. Returns 0;
// 17 for any other word.
Status RunDatabaseCommand(Contents& contents, std::string_view command);

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_DATABASE_H_
