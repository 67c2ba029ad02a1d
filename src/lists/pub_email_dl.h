// A public e-mail list. The e-mail book holds them all (books/email_ab.h).

#ifndef QUILLKIT_LISTS_PUB_EMAIL_DL_H_
#define QUILLKIT_LISTS_PUB_EMAIL_DL_H_

#include "bridge/ab_ident.h"
#include "lists/email_dl.h"
#include "lists/public_list.h"

namespace quillkit {

class CEmailAB;

extern template class ServerList<CEmailDL, CEmailAB, BookKind::kPublicList>;
extern template class PublicList<CEmailDL, CEmailAB, BookKind::kPublicList>;

class CPubEmailDL : public PublicList<CEmailDL, CEmailAB, BookKind::kPublicList> {
 public:
  static const ClassRecord kClass;

  const ClassRecord* GetRuntimeClass() const override { return &kClass; }
};

}  // namespace quillkit

#endif  // QUILLKIT_LISTS_PUB_EMAIL_DL_H_
