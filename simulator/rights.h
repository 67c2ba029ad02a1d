// The rights of accounts on books.

#ifndef QUILLKIT_SIMULATOR_RIGHTS_H_
#define QUILLKIT_SIMULATOR_RIGHTS_H_

#include <string_view>

#include "simulator/protocol.h"

namespace quillbox {

enum class Action { kRead, kCreateEntry, kChange };

// Whether an account has full rights: ADMINISTRATOR and TOOLKIT.
bool IsPrivileged(std::string_view user);

// Returns 0; 3 for a book that cannot exist (an unknown kind, or a wrong name of a fixed book); 11
// if the user has no right. GUEST may only create entries in the users' book. A privileged account
// may do anything. Any other account may read every book and change its own.
Status Permit(std::string_view user, const ABIdent& book, Action action);

// The same for calls that the log does not support: 13 for the log.
Status PermitEntries(std::string_view user, const ABIdent& book, Action action);

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_RIGHTS_H_
