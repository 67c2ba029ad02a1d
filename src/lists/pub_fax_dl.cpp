#include "lists/pub_fax_dl.h"

#include "books/fax_ab.h"

namespace quillkit {

template class ServerList<CFaxDL, CFaxAB, BookKind::kFaxList>;
template class PublicList<CFaxDL, CFaxAB, BookKind::kFaxList>;

const ClassRecord CPubFaxDL::kClass = {"CPubFaxDL", sizeof(CPubFaxDL), 1, CreateObject<CPubFaxDL>,
                                       &CFaxDL::kClass};

}  // namespace quillkit
