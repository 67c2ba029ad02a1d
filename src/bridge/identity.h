// The identity text that a server sends at login: "model - version - third".

#ifndef QUILLKIT_BRIDGE_IDENTITY_H_
#define QUILLKIT_BRIDGE_IDENTITY_H_

#include <string_view>

#include "base/fixed_text.h"

namespace quillkit {

// Model and version end at the dash and keep any space before it. The third field is a single word.
// Each is truncated to 63 characters.
struct Identity {
  FixedText<64> model;
  FixedText<64> version;
  FixedText<64> third;
};

// Parses an identity text. A missing or malformed field and all fields after it are empty.
Identity ParseIdentity(std::string_view text);

}  // namespace quillkit

#endif  // QUILLKIT_BRIDGE_IDENTITY_H_
