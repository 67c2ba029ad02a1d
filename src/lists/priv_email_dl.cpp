#include "lists/priv_email_dl.h"

#include "books/priv_email_ab.h"
#include "bridge/long_timeout.h"
#include "bridge/the_agent.h"

namespace quillkit {

template class ServerList<CEmailDL, CPrivEmailAB, BookKind::kPrivateList>;

const ClassRecord CPrivEmailDL::kClass = {"CPrivEmailDL", sizeof(CPrivEmailDL), 1,
                                          CreateObject<CPrivEmailDL>, &CEmailDL::kClass};

Status CPrivEmailDL::Open(CPrivEmailAB* newBook, std::string_view newName,
                          std::uint32_t* delivered) {
  if (newBook == nullptr) return kRefused;
  Status status = InitName(newName);
  if (status != kNoError) return status;
  book = newBook;
  status = MakeRoom(MaxListMembers);
  if (status != kNoError) return status;
  if (!IsEmpty()) filled = 1;
  return ReadRoom(delivered);
}

Status CPrivEmailDL::AddMember(CEmailEntry* entry, std::int32_t reload) {
  searchIndex = 0;
  if (book == nullptr) return kRefused;
  if (IsFull()) return kBookFull;
  return Finish(book->AddMember(name, entry), reload);
}

Status CPrivEmailDL::Reload() {
  searchIndex = 0;
  if (book == nullptr) return kRefused;
  const Status status = MakeRoom(MaxServerMembers);
  return status == kNoError ? ReadRoom() : status;
}

Status CPrivEmailDL::WriteMembers() {
  const auto count = static_cast<std::uint32_t>(members.count());
  if (book != nullptr) return book->CreateListWithMembers(name, members.data(), &count);
  BookAccess<CEmailEntry> list(&TheAgent, BookKind::kPrivateList, name);
  list.CreateBook();
  for (CEmailEntry& each : members) {
    each.BlankPublicAddress();
    list.Create(&each);
  }
  return kNoError;
}

Status CPrivEmailDL::DestroyList() {
  members.Free();
  return DestroyKeepingMembers();
}

Status CPrivEmailDL::DestroyKeepingMembers() {
  LongTimeout timeout(&TheAgent);
  Status status = timeout.Raise();
  if (status != kNoError) return status;
  status = book != nullptr
               ? book->DeleteServerList(name)
               : BookAccess<CEmailEntry>(&TheAgent, BookKind::kPrivateList, name).DeleteBook();
  return status == kNoError ? timeout.Restore() : status;
}

std::int32_t CPrivEmailDL::AddLocal(CEmailEntry* entry) {
  return RefusesLocal() ? -1 : AppendAfter(book->AddMember(name, entry), *entry);
}

std::int32_t CPrivEmailDL::AddLocalUnlimited(CEmailEntry* entry) {
  return RefusesLocal() ? -1 : AppendAfter(book->CreateMember(name, entry), *entry);
}

std::int32_t CPrivEmailDL::AddLocalChecked(CEmailEntry* entry) {
  if (RefusesLocal()) return -1;
  const Status created = book->CreateMember(name, entry);
  if (created == kNoError) SetOrigin(entry);
  return AppendAfter(created, *entry);
}

bool CPrivEmailDL::RefusesLocal() const {
  if (book != nullptr && IsFull()) TheAgent.SetError(kBookFull);
  return book == nullptr || IsFull();
}

std::int32_t CPrivEmailDL::AppendAfter(Status created, const CEmailEntry& entry) {
  if (created != kNoError) return -1;
  searchIndex = 0;
  return members.Append(entry);
}

// Tells by the flags where the entry of a member stands.
void CPrivEmailDL::SetOrigin(CEmailEntry* entry) {
  if (book->EntryCount() == 0) book->LoadEntries(0);
  const CEmailEntry* found = book->EntryAt(book->FindEntry(entry->name.View()));
  if (found == nullptr) {
    if (book->EntriesLoaded()) entry->flags = 0;
  } else if (found->address == entry->address) {
    entry->flags = 1;
  }
}

std::int32_t CPrivEmailDL::ModifyLocal(CEmailEntry* entry) {
  if (book == nullptr) return -1;
  return book->ModifyMember(name, entry) == kNoError && Overwrite(*entry) ? 1 : 0;
}

std::int32_t CPrivEmailDL::RenameLocal(std::string_view key, CEmailEntry* entry) {
  if (book == nullptr) return -1;
  if (book->RenameMember(name, key, entry) != kNoError || !Overwrite(*entry)) return 0;
  members.At(FindMember(*entry))->SetName(key);
  return 1;
}

int CPrivEmailDL::AssignFrom(const CEmailDL& other) {
  if (&other == this || other.IsEmpty() || !members.Allocate(other.Count())) return 1;
  for (std::int32_t i = 0; i < other.Count(); ++i) SetAt(i, *other.GetAt(i), 0);
  return 1;
}

}  // namespace quillkit
