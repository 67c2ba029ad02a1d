#include "lists/pub_email_dl.h"

#include "books/email_ab.h"

namespace quillkit {

template class ServerList<CEmailDL, CEmailAB, BookKind::kPublicList>;
template class PublicList<CEmailDL, CEmailAB, BookKind::kPublicList>;

const ClassRecord CPubEmailDL::kClass = {"CPubEmailDL", sizeof(CPubEmailDL), 1,
                                         CreateObject<CPubEmailDL>, &CEmailDL::kClass};

}  // namespace quillkit
