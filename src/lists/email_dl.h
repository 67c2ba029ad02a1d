// The base of the two e-mail lists: a list with no server behind it.

#ifndef QUILLKIT_LISTS_EMAIL_DL_H_
#define QUILLKIT_LISTS_EMAIL_DL_H_

#include "bridge/address_entries.h"
#include "lists/distribution_list.h"

namespace quillkit {

class CEmailDL : public DistributionList<CEmailEntry> {
 public:
  static const ClassRecord kClass;

  const ClassRecord* GetRuntimeClass() const override { return &kClass; }
};

}  // namespace quillkit

#endif  // QUILLKIT_LISTS_EMAIL_DL_H_
