// The soft keys of the front panel. Each command throws a Refusal when the appliance refuses.

#ifndef QUILLKIT_EXAMPLES_KEY_COMMANDS_H_
#define QUILLKIT_EXAMPLES_KEY_COMMANDS_H_

#include <string>

#include "quillctl/session.h"

namespace quillctl {

// The keys and the number of their items on the server. Reads no items.
void ShowKeys(const Session& session, bool json = false);

// Names have at most 31 characters. The library sends the name of a new key that is longer as an
// empty one.
void AddKey(const Session& session, const std::string& name);
void RenameKey(const Session& session, const std::string& oldName, const std::string& newName);
void DeleteKey(const Session& session, const std::string& name);

// The key of this name in a book that was loaded; throws a Refusal when there is none.
quillkit::CSoftKey* FindKey(quillkit::CTopLevelAB* book, const std::string& name);

// A key that carries a name for the operations on a book.
OwnedKey MakeKey(const std::string& name, quillkit::CTopLevelAB* book);

}  // namespace quillctl

#endif  // QUILLKIT_EXAMPLES_KEY_COMMANDS_H_
