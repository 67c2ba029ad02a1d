// A fax list, of which there are public ones alone. The fax book holds them all (books/fax_ab.h).

#ifndef QUILLKIT_LISTS_PUB_FAX_DL_H_
#define QUILLKIT_LISTS_PUB_FAX_DL_H_

#include "bridge/ab_ident.h"
#include "lists/fax_dl.h"
#include "lists/public_list.h"

namespace quillkit {

class CFaxAB;

extern template class ServerList<CFaxDL, CFaxAB, BookKind::kFaxList>;
extern template class PublicList<CFaxDL, CFaxAB, BookKind::kFaxList>;

class CPubFaxDL : public PublicList<CFaxDL, CFaxAB, BookKind::kFaxList> {
 public:
  static const ClassRecord kClass;

  const ClassRecord* GetRuntimeClass() const override { return &kClass; }
};

}  // namespace quillkit

#endif  // QUILLKIT_LISTS_PUB_FAX_DL_H_
