#include "platform/call_scope.h"

namespace quillkit {

CallScope::CallScope() = default;

}  // namespace quillkit
