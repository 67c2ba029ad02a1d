// The operations of a scanner that do more than forward.

#include "appliance/scanner.h"
#include "books/user_record.h"
#include "bridge/long_timeout.h"

namespace quillkit {

// Unlike a batch, a clear restores the time-out even if it failed.
Status CScanner::Clear(BookKind kind, std::string_view bookName) {
  if (!IsBound()) return kNoError;
  return LongTimeout(agent, LongTimeout::Unit::kSeconds).RunAlways([&] {
    return BookAccess<EntryKey>(agent, kind, bookName).ClearBook();
  });
}

Status CScanner::CountLists(BookKind kind, std::uint32_t* count) const {
  if (!IsBound()) return kRefused;
  ABIdent selector(kind, {});
  return agent->IMSPListAB(&selector, nullptr, nullptr, count, 1);
}

Status CScanner::ListLists(BookKind kind, ABIdent* books, std::uint32_t* count) const {
  if (agent == nullptr || !HasCapacity(count)) return kRefused;
  const std::uint32_t capacity = *count;
  ABIdent selector(kind, {});
  KeyRange range({}, "*");
  const Status status = agent->IMSPListAB(&selector, &range, books, count, 1);
  TerminateDelivered(books, capacity, *count, 1);
  return status;
}

Status CScanner::CreatePrivateMembers(std::string_view list, CEmailEntry* members,
                                      const std::uint32_t* count) const {
  if (agent == nullptr) return kRefused;
  BookAccess<CEmailEntry> book = PrivateList(list);
  book.CreateBook();
  for (std::uint32_t i = 0; i < *count; ++i) {
    members[i].BlankPublicAddress();
    const Status status = book.Create(&members[i]);
    if (status != kNoError) return status;
  }
  return kNoError;
}

Status CScanner::ReadPageBoundaries(PageBoundary* table, std::uint32_t* count) const {
  if (agent == nullptr || table == nullptr || !HasCapacity(count)) return kRefused;
  ABIdent book(BookKind::kEmail, kEmailBook);
  return agent->IMSPReadPageBoundaries(&book, table, count);
}

Status CScanner::ReadAdminTag(std::uint32_t* tag) const {
  Wiped<CUserEntry> administrator;
  administrator.SetName(kAdministratorName);
  const Status status = UserEntries().ReadOne(&administrator);
  if (status == kNoError) *tag = administrator.tag;
  return status;
}

Status CScanner::WriteAdminTag(const std::uint32_t* tag) const {
  const CUserRecord* user = agent != nullptr ? agent->CurrentUser() : nullptr;
  if (user == nullptr || !user->IsAdministrator()) return kRefused;
  Wiped<CUserEntry> administrator;
  administrator.SetName(kAdministratorName);
  administrator.nibbles = 1;
  const Status status = UserEntries().ReadOne(&administrator);
  if (status != kNoError) return status;
  administrator.SetTag(tag);
  return UserEntries().Modify(&administrator);
}

Status CScanner::RenameList(BookKind kind, const std::string& oldName,
                            const std::string& newName) const {
  CEmailEntry renamed;
  renamed.SetName(newName);
  return BookAccess<CEmailEntry>(agent, kind, kPrivateBook).Rename(oldName, &renamed);
}

}  // namespace quillkit
