#include "books/user_ab.h"

#include "appliance/after_change.h"
#include "bridge/the_agent.h"

namespace quillkit {

const ClassRecord CUserAB::kClass = {"CUserAB", sizeof(CUserAB), 1, CreateObject<CUserAB>, nullptr};

int CUserAB::Attach(CScanner* newScanner, std::int32_t privateBooks, std::int32_t loadNow) {
  if (newScanner == nullptr) return 0;
  scanner = newScanner;
  const int result = loadNow != 0 ? Load() : 1;
  withPrivateBooks = privateBooks;
  return result;
}

int CUserAB::Load() {
  users.Init(MaxUsers, this);
  const Status status = users.Load({}, 1);
  if (status == kNoError || status == kDataNotFound) return 1;
  users.Clear();
  return 0;
}

CUserRecord* CUserAB::First(CUserRecord* record) {
  walkIndex = 0;
  return FillRecordAt(walkIndex, record);
}

CUserRecord* CUserAB::Next(CUserRecord* record) {
  return IsEmpty() ? nullptr : FillRecordAt(++walkIndex, record);
}

CUserRecord* CUserAB::Previous(CUserRecord* record) {
  return IsEmpty() ? nullptr : FillRecordAt(--walkIndex, record);
}

CUserRecord* CUserAB::GetAt(std::int32_t index, CUserRecord* record) {
  return FillRecordAt(index, record);
}

int CUserAB::RemoveAt(std::int32_t index, std::int32_t reload) {
  if (users.RemoveAt(index) == 0) return 0;
  return reload != 0 ? Load() : 1;
}

std::int32_t CUserAB::FindFirst(const std::string& pattern, std::int32_t exact,
                                CUserRecord* record) {
  const std::int32_t index = users.FindFirst(pattern, exact);
  FillRecordAt(index, record);
  return index;
}

std::int32_t CUserAB::FindNext(std::int32_t exact, CUserRecord* record) {
  const std::int32_t index = users.FindNext(exact);
  FillRecordAt(index, record);
  return index;
}

CUserRecord* CUserAB::FillRecordAt(std::int32_t index, CUserRecord* record) {
  const CUserEntry* source = users.PointerAt(index);
  return source != nullptr ? FillRecord(*source, record) : nullptr;
}

// The copy step. `source` may be `record` itself.
CUserRecord* CUserAB::FillRecord(const CUserEntry& source, CUserRecord* record) {
  record->SetFrom(this, source);
  record->tag = source.tag;
  record->SetPrivateBookRaw(nullptr);
  if (withPrivateBooks != 0) record->CreatePrivateBook();
  return record;
}

bool CUserAB::AddUser(CUserRecord* record, std::int32_t reload) {
  return !RecordIfFull() && ReloadAfter(Entries().Create(record), reload);
}

bool CUserAB::ReadUser(CUserRecord* record, std::int32_t reload) {
  if (!record->name.IsTerminated()) return false;
  return ReloadAfter(Entries().ReadOne(record), reload, record);
}

bool CUserAB::ModifyUser(CUserRecord* record, std::int32_t reload) {
  return ReloadAfter(Entries().Modify(record), reload, record);
}

bool CUserAB::RenameUser(const std::string& oldName, CUserRecord* record, std::int32_t reload) {
  return ReloadAfter(Entries().Rename(oldName, record), reload, record);
}

bool CUserAB::DeleteUser(CUserRecord* record, std::int32_t reload) {
  ClearUserLog(*record);
  return ReloadAfter(Entries().Delete(*record), reload);
}

bool CUserAB::ReloadAfter(Status changed, std::int32_t reload, CUserRecord* record) {
  const auto load = [&] {
    if (record != nullptr) FillRecord(*record, record);
    Load();
  };
  return LoadAfterChange(changed, reload, load) == kNoError;
}

// Returns whether 4096 accounts are in memory. If so, records code 24.
bool CUserAB::RecordIfFull() const {
  if (users.Count() < MaxUsers) return false;
  TheAgent.SetError(kBookFull);
  return true;
}

std::int32_t CUserAB::AddLocal(CUserRecord* record) {
  if (RecordIfFull() || Entries().Create(record) != kNoError) return -1;
  const std::int32_t count = users.Append(*record);
  return count > 0 ? count : -1;
}

std::int32_t CUserAB::DeleteLocal(CUserRecord* record) {
  if (Entries().Delete(*record) != kNoError || users.RemoveAt(users.Find(*record)) == 0) return -1;
  return users.Count();
}

bool CUserAB::RenameLocal(const std::string& oldName, CUserRecord* record) {
  if (Entries().Rename(oldName, record) != kNoError) return false;
  CUserEntry old;
  old.SetName(oldName);
  CUserEntry* slot = users.PointerAt(users.Find(old));
  if (slot == nullptr) return false;
  slot->name = record->name;
  return true;
}

bool CUserAB::ModifyLocal(CUserRecord* record) {
  return Entries().Modify(record) == kNoError && users.SetAt(users.Find(*record), *record) != 0;
}

Status CUserAB::ClearAll() {
  CScanner* last = TheAgent.ScannerAt(TheAgent.ScannerCount() - 1);
  if (last == nullptr || !last->IsBound()) return kRefused;
  last->ClearLogExceptSystem();
  const Status status = last->ClearUsersBook();
  users.Clear();
  Load();
  return status;
}

void CUserAB::Serialize(Archive& archive) {
  for (std::int32_t i = 0; i < users.Count(); ++i) {
    Wiped<CUserEntry> record(users.GetAt(i));
    record.Serialize(archive);
  }
}

}  // namespace quillkit
