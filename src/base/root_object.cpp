#include "base/root_object.h"

namespace quillkit {

void RootObject::Serialize(Archive& /*archive*/) {}
void RootObject::AssertValid() const {}
void RootObject::Describe() const {}

}  // namespace quillkit
