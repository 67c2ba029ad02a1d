#include "lists/pub_email_dl.h"

namespace quillkit {

template <>
const ClassRecord CPubEmailDL::kClass = {"CPubEmailDL", sizeof(CPubEmailDL), 1,
                                         CreateObject<CPubEmailDL>, &CEmailDL::kClass};

}  // namespace quillkit
