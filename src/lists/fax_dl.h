// The base of the fax list: a list with no server behind it.

#ifndef QUILLKIT_LISTS_FAX_DL_H_
#define QUILLKIT_LISTS_FAX_DL_H_

#include "bridge/address_entries.h"
#include "lists/distribution_list.h"

namespace quillkit {

class CFaxDL : public DistributionList<CFaxEntry> {
 public:
  static const ClassRecord kClass;

  const ClassRecord* GetRuntimeClass() const override { return &kClass; }
};

}  // namespace quillkit

#endif  // QUILLKIT_LISTS_FAX_DL_H_
