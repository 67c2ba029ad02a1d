// A fax list; all of them are public. The fax book (books/fax_ab.h) holds them.

#ifndef QUILLKIT_LISTS_PUB_FAX_DL_H_
#define QUILLKIT_LISTS_PUB_FAX_DL_H_

#include "bridge/ab_ident.h"
#include "lists/fax_dl.h"
#include "lists/public_list.h"

namespace quillkit {

class CFaxAB;

using CPubFaxDL = PublicList<CFaxEntry, CFaxAB, BookKind::kFaxList>;

template <>
const ClassRecord CPubFaxDL::kClass;

extern template class ServerList<CFaxEntry, CFaxAB, BookKind::kFaxList>;
extern template class PublicList<CFaxEntry, CFaxAB, BookKind::kFaxList>;

}  // namespace quillkit

#endif  // QUILLKIT_LISTS_PUB_FAX_DL_H_
