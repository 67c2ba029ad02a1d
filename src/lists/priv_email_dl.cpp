#include "lists/priv_email_dl.h"

namespace quillkit {

template <>
const ClassRecord CPrivEmailDL::kClass = {"CPrivEmailDL", sizeof(CPrivEmailDL), 1,
                                          CreateObject<CPrivEmailDL>, &CEmailDL::kClass};

}  // namespace quillkit
