// The whole key set as a file: out of an appliance, and into one.

#ifndef QUILLKIT_EXAMPLES_KEY_SET_COMMANDS_H_
#define QUILLKIT_EXAMPLES_KEY_SET_COMMANDS_H_

#include <string>

#include "quillctl/session.h"

namespace quillctl {

// Writes the keys and their items as JSON (key_set_json.h) to a file, or to standard output for an
// empty path. Throws a Refusal, with nothing written, when they cannot be read whole.
void ExportKeys(const Session& session, const std::string& path);

enum class Consent { kAsk, kGiven, kDryRun };

// Logs in, shows what differs between the appliance and the file, and, once somebody said yes,
// makes the appliance's keys those of the file. Throws a UsageError for a file that is not
// understood, with nothing asked of the appliance, and a Refusal when nobody said yes, when a
// change fails or the user interrupts them, which tells how many were made before, and when the
// appliance then does not have what the file tells.
void ApplyKeys(const Credentials& credentials, const std::string& path, Consent consent);

}  // namespace quillctl

#endif  // QUILLKIT_EXAMPLES_KEY_SET_COMMANDS_H_
