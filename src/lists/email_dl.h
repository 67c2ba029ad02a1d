// The base class of the e-mail lists: a list without a server.

#ifndef QUILLKIT_LISTS_EMAIL_DL_H_
#define QUILLKIT_LISTS_EMAIL_DL_H_

#include "bridge/address_entries.h"
#include "lists/distribution_list.h"

namespace quillkit {

using CEmailDL = DistributionList<CEmailEntry>;

template <>
const ClassRecord CEmailDL::kClass;

}  // namespace quillkit

#endif  // QUILLKIT_LISTS_EMAIL_DL_H_
