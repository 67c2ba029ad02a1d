// What a server says of itself at login: "model - version - third".

#ifndef QUILLKIT_BRIDGE_IDENTITY_H_
#define QUILLKIT_BRIDGE_IDENTITY_H_

#include <string_view>

#include "base/fixed_text.h"

namespace quillkit {

// Model and version run up to the dash and so keep any blank that stands before it; the third field
// is a single word. Each is cut at 63 characters.
struct Identity {
  FixedText<64> model;
  FixedText<64> version;
  FixedText<64> third;
};

// Reads an identity text. A field that is missing or malformed is empty, and so is every one behind
// it.
Identity ParseIdentity(std::string_view text);

}  // namespace quillkit

#endif  // QUILLKIT_BRIDGE_IDENTITY_H_
