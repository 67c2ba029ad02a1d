#include "lists/email_dl.h"

namespace quillkit {

template <>
const ClassRecord CEmailDL::kClass = {"CEmailDL", sizeof(CEmailDL), 1, CreateObject<CEmailDL>,
                                      nullptr};

}  // namespace quillkit
