// A private e-mail list. The private book (books/priv_email_ab.h) holds all of them.

#ifndef QUILLKIT_LISTS_PRIV_EMAIL_DL_H_
#define QUILLKIT_LISTS_PRIV_EMAIL_DL_H_

#include "lists/private_list.h"

namespace quillkit {

class CPrivEmailAB;

using CPrivEmailDL = PrivateList<CPrivEmailAB>;

template <>
const ClassRecord CPrivEmailDL::kClass;

extern template class ServerList<CEmailEntry, CPrivEmailAB, BookKind::kPrivateList>;
extern template class PrivateList<CPrivEmailAB>;

}  // namespace quillkit

#endif  // QUILLKIT_LISTS_PRIV_EMAIL_DL_H_
