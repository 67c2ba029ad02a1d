// Every class that can be made by its name.

#include "appliance/scanner.h"
#include "base/class_record.h"
#include "books/email_ab.h"
#include "books/fax_ab.h"
#include "books/printer_ab.h"
#include "books/priv_email_ab.h"
#include "books/user_ab.h"
#include "bridge/agent.h"
#include "lists/email_dl.h"
#include "lists/fax_dl.h"
#include "lists/priv_email_dl.h"
#include "lists/pub_email_dl.h"
#include "lists/pub_fax_dl.h"
#include "softkeys/top_level_ab.h"

namespace quillkit {
namespace {

constexpr const ClassRecord* kClasses[] = {
    &CAgent::kClass,       &CScanner::kClass,    &CTopLevelAB::kClass,  &CEmailAB::kClass,
    &CPrivEmailAB::kClass, &CFaxAB::kClass,      &CUserAB::kClass,      &CPrinterAB::kClass,
    &CEmailDL::kClass,     &CPubEmailDL::kClass, &CPrivEmailDL::kClass, &CFaxDL::kClass,
    &CPubFaxDL::kClass,
};

}  // namespace

std::span<const ClassRecord* const> RegisteredClasses() {
  return kClasses;
}

}  // namespace quillkit
