// Commands for the soft keys of the front panel. Each one throws a Refusal if the appliance
// refuses.

#ifndef QUILLCTL_KEY_COMMANDS_H_
#define QUILLCTL_KEY_COMMANDS_H_

#include <string>

#include "console/confirmation.h"
#include "quillctl/session.h"

namespace quillctl {

struct KeyArguments {
  std::string name = {};  // at most 31 characters: of a longer one the library sends an empty one
  std::string newName = {};
  bool json = false;
  console::Consent consent = {};
};

// Lists the keys and how many items each has on the server. Does not read the items.
void ShowKeys(const Session& session, const KeyArguments& a);

void AddKey(const Session& session, const KeyArguments& a);

// Deletes a key after confirmation.
void DeleteKey(const Session& session, const KeyArguments& a);

}  // namespace quillctl

#endif  // QUILLCTL_KEY_COMMANDS_H_
