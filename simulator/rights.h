// What an account may do with a book.

#ifndef QUILLKIT_SIMULATOR_RIGHTS_H_
#define QUILLKIT_SIMULATOR_RIGHTS_H_

#include <string_view>

#include "simulator/protocol.h"

namespace quillbox {

enum class Action { kRead, kCreateEntry, kChange };

// Whether an account has full rights: ADMINISTRATOR and TOOLKIT.
bool IsPrivileged(std::string_view user);

// 0; 3 for a book that cannot exist: its kind does not, or a fixed book has another name; 11 for
// what the user may not do. GUEST may create an entry in the users' book and nothing else, a
// privileged account may do anything, and any other one may read every book and change its own.
Status Permit(std::string_view user, const ABIdent& book, Action action);

// The same for what the log does not offer: 13 for the log.
Status PermitEntries(std::string_view user, const ABIdent& book, Action action);

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_RIGHTS_H_
