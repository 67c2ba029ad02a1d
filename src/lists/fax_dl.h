// The base class of the fax lists: a list without a server.

#ifndef QUILLKIT_LISTS_FAX_DL_H_
#define QUILLKIT_LISTS_FAX_DL_H_

#include "bridge/address_entries.h"
#include "lists/distribution_list.h"

namespace quillkit {

using CFaxDL = DistributionList<CFaxEntry>;

template <>
const ClassRecord CFaxDL::kClass;

}  // namespace quillkit

#endif  // QUILLKIT_LISTS_FAX_DL_H_
