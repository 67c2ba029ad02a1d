#include "books/user_record.h"

#include <string>

#include "base/archive.h"
#include "books/priv_email_ab.h"
#include "books/session_route.h"
#include "books/user_ab.h"
#include "bridge/the_agent.h"

namespace quillkit {

CUserRecord::CUserRecord() = default;
CUserRecord::~CUserRecord() {
  WipePassword();
}

int CUserRecord::SetFrom(CUserAB* newOwner, std::string_view newName, std::string_view newPassword,
                         std::string_view newThird, std::string_view newFourth,
                         const std::uint32_t* newFlags, const std::uint32_t* newNibbles) {
  owner = newOwner;
  nameMismatch = 0;
  return Set(newName, newPassword, newThird, newFourth, newFlags, newNibbles);
}

int CUserRecord::SetOwner(CUserAB* newOwner) {
  owner = newOwner;
  return 1;
}

const CScanner& CUserRecord::Route() const {
  return owner != nullptr ? ScannerOrUnbound(owner->Scanner()) : SessionRoute();
}

CPrivEmailAB* CUserRecord::DetachPrivateBook() {
  return IsValid() ? privateBook.release() : nullptr;
}

int CUserRecord::AttachPrivateBook(CPrivEmailAB* book) {
  if (!IsValid()) return 0;
  if (book == nullptr) {
    privateBook.reset();
    return CreatePrivateBook();
  }
  if (book != privateBook.get()) privateBook.reset(book);
  return 1;
}

int CUserRecord::SetPrivateBookRaw(CPrivEmailAB* book) {
  static_cast<void>(privateBook.release());
  privateBook.reset(book);
  return 1;
}

int CUserRecord::CreatePrivateBook() {
  if (!IsValid()) return 0;
  if (IsAdministrator() || IsToolkit()) return 1;
  privateBook = std::make_unique<CPrivEmailAB>();
  privateBook->SetUser(this);
  return 1;
}

int CUserRecord::LoadPrivateBook() {
  if (CreatePrivateBook() == 0) return 0;
  return privateBook != nullptr ? privateBook->LoadEntries(1) : 1;
}

void CUserRecord::LoadPrivateLists() {
  CPrivEmailAB* book = PrivateBook();
  if (book == nullptr) return;
  if (!book->EntriesLoaded()) book->LoadEntries(0);
  if (book->ListsLoaded()) {
    book->LoadAllMembers();
  } else {
    book->LoadLists(1);
  }
}

int CUserRecord::RestorePrivateBook() {
  CUserRecord account;
  account.name = name;
  const bool known =
      owner != nullptr ? owner->ReadUser(&account, 0) : TheAgent.ReadUser(&account) == kNoError;
  CPrivEmailAB* book = PrivateBook();
  if (!known || book == nullptr) return 0;
  const Status emptied = book->EmptyOnServer();
  if (emptied != kNoError && emptied != kDataNotFound) return 0;
  return book->WriteBack() == kNoError ? 1 : 0;
}

Status CUserRecord::CreatePrivateEntry(CEmailEntry* entry) const {
  return Route().PrivateEntries().Create(entry);
}

void CUserRecord::SerializeWithBook(Archive& archive) {
  if (privateBook == nullptr) LoadPrivateBook();
  if (archive.IsStoring()) LoadPrivateLists();
  std::string section(name.View());
  archive.Exchange(section);
  nameMismatch = section != name.View() ? 1 : 0;
  if (nameMismatch != 0) return;
  if (CPrivEmailAB* book = PrivateBook()) book->Serialize(archive);
}

Status CUserRecord::LoadLog() const {
  return owner != nullptr ? owner->LoadUserLog(*this) : TheAgent.ReadLog(std::string(name.View()));
}

Status CUserRecord::ClearMyLog() const {
  return owner != nullptr ? owner->ClearUserLog(*this)
                          : TheAgent.ClearLog(std::string(name.View()));
}

std::uint32_t CUserRecord::LogSize() const {
  return LogAgent().LogCount();
}

const LogRecord* CUserRecord::LogAt(std::int32_t index) const {
  return LogAgent().LogRecordAt(index);
}

CAgent& CUserRecord::LogAgent() const {
  CAgent* agent = owner != nullptr && owner->HasScanner() ? owner->Scanner()->Agent() : nullptr;
  return agent != nullptr ? *agent : TheAgent;
}

int CUserRecord::MarkOnce(std::int32_t reload) {
  if ((flags & kOnceFlag) != 0) return 0;
  flags |= kOnceFlag;
  return Write(reload);
}

int CUserRecord::TurnOn(std::int32_t reload) {
  flags |= kOnFlag;
  return Write(reload);
}

int CUserRecord::TurnOff(std::int32_t reload) {
  flags &= ~kOnFlag;
  return Write(reload);
}

int CUserRecord::Write(std::int32_t reload) {
  const bool written =
      owner != nullptr ? owner->ModifyUser(this, reload) : TheAgent.ModifyUser(this) == kNoError;
  return written ? 1 : 0;
}

}  // namespace quillkit
