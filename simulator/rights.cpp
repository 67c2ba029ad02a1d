#include "simulator/rights.h"

#include "simulator/book_type.h"
#include "simulator/protocol.h"

namespace quillbox {
namespace {

bool MayUse(std::string_view user, const BookType& type, Action action) {
  if (user == kGuestName) return type.kind == BookKind::kUsers && action == Action::kCreateEntry;
  return IsPrivileged(user) || action == Action::kRead || type.isPrivate;
}

}  // namespace

bool IsPrivileged(std::string_view user) {
  return user == kAdministratorName || user == kToolkitName;
}

Status Permit(std::string_view user, const ABIdent& book, Action action) {
  const BookType* const type = TypeOf(book.kind);
  if (type == nullptr || !type->Accepts(book.name)) return kNoSuchBook;
  return MayUse(user, *type, action) ? kNoError : kAccessDenied;
}

Status PermitEntries(std::string_view user, const ABIdent& book, Action action) {
  const Status status = Permit(user, book, action);
  return status == kNoError && book.kind == BookKind::kLog ? kNotImplemented : status;
}

}  // namespace quillbox
