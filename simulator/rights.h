// What an account may do with a book.

#ifndef QUILLKIT_SIMULATOR_RIGHTS_H_
#define QUILLKIT_SIMULATOR_RIGHTS_H_

#include <string_view>

#include "bridge/records.h"

namespace quillkit {

enum class Action { kRead, kCreateEntry, kChange };

// Whether an account has full rights: ADMINISTRATOR and TOOLKIT.
bool IsPrivileged(std::string_view user);

// GUEST may create an entry in the users' book and nothing else. A privileged account may do
// anything; any other one may read every book and change those that are its own.
bool MayUse(std::string_view user, BookKind kind, Action action);

}  // namespace quillkit

#endif  // QUILLKIT_SIMULATOR_RIGHTS_H_
