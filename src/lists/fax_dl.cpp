#include "lists/fax_dl.h"

namespace quillkit {

const ClassRecord CFaxDL::kClass = {"CFaxDL", sizeof(CFaxDL), 1, CreateObject<CFaxDL>, nullptr};

}  // namespace quillkit
