#include "lists/pub_fax_dl.h"

namespace quillkit {

template <>
const ClassRecord CPubFaxDL::kClass = {"CPubFaxDL", sizeof(CPubFaxDL), 1, CreateObject<CPubFaxDL>,
                                       &CFaxDL::kClass};

}  // namespace quillkit
