// A public e-mail list. The e-mail book (books/email_ab.h) holds all of them.

#ifndef QUILLKIT_LISTS_PUB_EMAIL_DL_H_
#define QUILLKIT_LISTS_PUB_EMAIL_DL_H_

#include "bridge/ab_ident.h"
#include "lists/email_dl.h"
#include "lists/public_list.h"

namespace quillkit {

class CEmailAB;

using CPubEmailDL = PublicList<CEmailEntry, CEmailAB, BookKind::kPublicList>;

template <>
const ClassRecord CPubEmailDL::kClass;

extern template class ServerList<CEmailEntry, CEmailAB, BookKind::kPublicList>;
extern template class PublicList<CEmailEntry, CEmailAB, BookKind::kPublicList>;

}  // namespace quillkit

#endif  // QUILLKIT_LISTS_PUB_EMAIL_DL_H_
