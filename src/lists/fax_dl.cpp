#include "lists/fax_dl.h"

namespace quillkit {

template <>
const ClassRecord CFaxDL::kClass = {"CFaxDL", sizeof(CFaxDL), 1, CreateObject<CFaxDL>, nullptr};

}  // namespace quillkit
