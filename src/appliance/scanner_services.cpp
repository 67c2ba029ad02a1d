// What a scanner asks of its agent that is not about the entries of one book.

#include "appliance/scanner.h"
#include "books/user_record.h"
#include "bridge/agent.h"
#include "bridge/long_timeout.h"

namespace quillkit {

Status CScanner::ClearEmailBook() {
  return Clear(BookKind::kEmail, kEmailBook);
}
Status CScanner::ClearFaxBook() {
  return Clear(BookKind::kFax, kFaxBook);
}
Status CScanner::ClearUsersBook() {
  return Clear(BookKind::kUsers, kUsersBook);
}
Status CScanner::ClearTopBook() {
  return Clear(BookKind::kTop, kTopBook);
}
Status CScanner::ClearPrintersBook() {
  return Clear(BookKind::kPrinters, kPrintersBook);
}

// Unlike a batch, a clear puts the time-out back also when it failed.
Status CScanner::Clear(BookKind kind, std::string_view bookName) {
  if (!IsBound()) return kNoError;
  return LongTimeout(agent, LongTimeout::Unit::kSeconds).RunAlways([&] {
    return BookAccess<EntryKey>(agent, kind, bookName).ClearBook();
  });
}

Status CScanner::SizeofEmail(std::uint32_t* count) const {
  return Size(BookKind::kEmail, kEmailBook, count);
}

Status CScanner::SizeofFax(std::uint32_t* count) const {
  return Size(BookKind::kFax, kFaxBook, count);
}

Status CScanner::SizeofUsers(std::uint32_t* count) const {
  return Size(BookKind::kUsers, kUsersBook, count);
}

Status CScanner::SizeofPrinters(std::uint32_t* count) const {
  return Size(BookKind::kPrinters, kPrintersBook, count);
}

Status CScanner::SizeofTop(std::uint32_t* count) const {
  return Size(BookKind::kTop, kTopBook, count);
}

Status CScanner::SizeofKey(const std::string& key, std::uint32_t* count) const {
  return Size(BookKind::kKeyItems, key, count);
}

Status CScanner::SizeofPublicList(const std::string& list, std::uint32_t* count) const {
  return Size(BookKind::kPublicList, list, count);
}

Status CScanner::SizeofPrivateList(const std::string& list, std::uint32_t* count) const {
  return Size(BookKind::kPrivateList, list, count);
}

Status CScanner::SizeofFaxList(const std::string& list, std::uint32_t* count) const {
  return Size(BookKind::kFaxList, list, count);
}

Status CScanner::CountPublicLists(std::uint32_t* count) const {
  return CountLists(BookKind::kPublicList, count);
}

Status CScanner::CountFaxLists(std::uint32_t* count) const {
  return CountLists(BookKind::kFaxList, count);
}

Status CScanner::Size(BookKind kind, std::string_view bookName, std::uint32_t* count) const {
  return IsBound() ? BookAccess<EntryKey>(agent, kind, bookName).Size(count) : kRefused;
}

Status CScanner::CountLists(BookKind kind, std::uint32_t* count) const {
  if (!IsBound()) return kRefused;
  ABIdent selector(kind, {});
  return agent->IMSPListAB(&selector, nullptr, nullptr, count, 1);
}

Status CScanner::BackupDatabase(const char* first, const char* second) const {
  return IsBound() ? agent->BackupDatabase(first, second) : kRefused;
}

Status CScanner::RestoreDatabase(const char* first, const char* second) const {
  return IsBound() ? agent->RestoreDatabase(first, second) : kRefused;
}

Status CScanner::RunBatch(const std::string& path) const {
  return IsBound() ? agent->RunBatch(path) : kRefused;
}

Status CScanner::ProbeIdentity(std::string& third) {
  return IsBound() ? agent->ProbeIdentity(this, third) : kRefused;
}

Status CScanner::EnrolUser(CUserEntry* entry) const {
  return agent != nullptr ? agent->EnrolUser(address, entry) : kRefused;
}

Status CScanner::ReadLog(const std::string& user) const {
  return agent != nullptr ? agent->ReadLog(user) : kRefused;
}

Status CScanner::ClearLog(const std::string& filter) const {
  return agent != nullptr ? agent->ClearLog(filter) : kRefused;
}

Status CScanner::ClearLogExceptSystem() const {
  return agent != nullptr ? agent->ClearLogExceptSystem() : kRefused;
}

std::uint32_t CScanner::LogCount() const {
  return agent != nullptr ? agent->LogCount() : 0;
}

const LogRecord* CScanner::LogRecordAt(std::int32_t index) const {
  return agent != nullptr ? agent->LogRecordAt(index) : nullptr;
}

Status CScanner::SetServerTimeout(std::uint32_t seconds, std::uint32_t* old) const {
  return agent != nullptr ? agent->SetServerTimeout(seconds, old) : kRefused;
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

Status CScanner::RenamePublicList(const std::string& oldName, const std::string& newName) const {
  return RenameList(BookKind::kPublicList, oldName, newName);
}

Status CScanner::RenamePrivateList(const std::string& oldName, const std::string& newName) const {
  return RenameList(BookKind::kPrivateList, oldName, newName);
}

Status CScanner::RenameList(BookKind kind, const std::string& oldName,
                            const std::string& newName) const {
  CEmailEntry renamed;
  renamed.SetName(newName);
  return BookAccess<CEmailEntry>(agent, kind, kPrivateBook).Rename(oldName, &renamed);
}

}  // namespace quillkit
