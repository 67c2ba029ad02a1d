#include "simulator/rights.h"

#include "simulator/book_type.h"

namespace quillkit {

bool IsPrivileged(std::string_view user) {
  return user == kAdministratorName || user == kToolkitName;
}

bool MayUse(std::string_view user, BookKind kind, Action action) {
  if (user == kGuestName) return kind == BookKind::kUsers && action == Action::kCreateEntry;
  if (IsPrivileged(user) || action == Action::kRead) return true;
  const BookType* const type = TypeOf(kind);
  return type != nullptr && type->isPrivate;
}

}  // namespace quillkit
