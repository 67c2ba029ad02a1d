#include "books/priv_email_ab.h"

#include <span>
#include <vector>

#include "books/session_route.h"
#include "books/user_record.h"
#include "bridge/long_timeout.h"
#include "bridge/the_agent.h"

namespace quillkit {
namespace {

// Returns whether a read of a book or list succeeded. One that does not exist (4) counts as empty.
bool IsWholeRead(Status status) {
  return status == kNoError || status == kDataNotFound;
}

Status DeleteBookOf(BookKind kind, std::string_view name) {
  return BookAccess<CEmailEntry>(&TheAgent, kind, name).DeleteBook();
}

Status DeleteSessionBook() {
  return DeleteBookOf(BookKind::kPrivateEmail, kPrivateBook);
}

template <class Work>
LongTimeout::Results DeleteInBulk(Work work) {
  return LongTimeout(&TheAgent, LongTimeout::Unit::kMilliseconds).RunAndRestore(work);
}

}  // namespace

template class ServerList<CEmailEntry, CPrivEmailAB, BookKind::kPrivateList>;
template class PrivateList<CPrivEmailAB>;

const ClassRecord CPrivEmailAB::kClass = {"CPrivEmailAB", sizeof(CPrivEmailAB), 1,
                                          CreateObject<CPrivEmailAB>, nullptr};

void CPrivEmailAB::Serialize(Archive& archive) {
  if (archive.IsStoring()) LoadAllMembers();
  SerializeLists(archive);
  if (!archive.IsStoring()) entries.Attach(0, this);
  entries.Serialize(archive);
}

bool CPrivEmailAB::SetUser(CUserRecord* newUser) {
  if (newUser != nullptr) user = newUser;
  return newUser != nullptr;
}

const CScanner& CPrivEmailAB::Route() const {
  return user != nullptr ? user->Route() : SessionRoute();
}

int CPrivEmailAB::LoadEntries(std::int32_t withLists) {
  entries.Attach(MaxPrivateEntries, this);
  const Status read = entries.Load({}, 1);
  const Status listed = withLists != 0 ? LoadLists(1) : kNoError;
  return IsWholeRead(read) && IsWholeRead(listed) ? 1 : 0;
}

Status CPrivEmailAB::LoadLists(std::int32_t withMembers) {
  ListSet<CPrivEmailDL> replaced;
  MoveListsTo(replaced);
  std::vector<ABIdent> rows(MaxPrivateLists);
  auto count = static_cast<std::uint32_t>(rows.size());
  const Status status = ListLists(rows.data(), &count);
  if (status != kNoError && status != kMoreData) return status;
  listsLoaded = 1;
  AppendRows(std::span(rows.data(), count), this, withMembers, replaced);
  return status;
}

int CPrivEmailAB::LoadListsChecked(std::int32_t withMembers) {
  return IsWholeRead(LoadLists(withMembers)) ? 1 : 0;
}

Status CPrivEmailAB::LoadAllMembers() {
  for (CPrivEmailDL* each : lists) {
    if (!each->IsEmpty()) continue;
    const Status status = each->Open(this, std::string(each->Name()));
    if (!IsWholeRead(status)) return status;
  }
  return kNoError;
}

Status CPrivEmailAB::WriteBack() {
  Status status = entries.SendAll();
  for (auto each = lists.begin(); status == kNoError && each != lists.end(); ++each) {
    status = (*each)->WriteMembers();
  }
  return status;
}

Status CPrivEmailAB::EmptyOnServer() {
  const auto empty = [this] {
    std::vector<ABIdent> rows(MaxPrivateLists);
    auto count = static_cast<std::uint32_t>(rows.size());
    if (ListLists(rows.data(), &count) == kNoError) {
      for (std::uint32_t i = 0; i < count; ++i) DeleteServerList(rows[i].name.View());
    }
    return DeleteSessionBook();
  };
  return DeleteInBulk(empty).work;
}

void CPrivEmailAB::DeleteAll() {
  const bool keepsCopy = user == nullptr || user->Owner() == nullptr;
  DeleteInBulk([&] {
    for (CPrivEmailDL* each : lists) {
      keepsCopy ? each->DestroyKeepingMembers() : each->DestroyList();
    }
    if (!keepsCopy) entries.Free();
    const Status status = DeleteSessionBook();
    if (!keepsCopy) FreeLists();
    return status;
  });
}

void CPrivEmailAB::DeleteAllLists() {
  DeleteInBulk([this] { return DeleteHeldLists(); });
}

Status CPrivEmailAB::ClearAll() {
  const auto clear = [this] {
    DeleteHeldLists();
    const Status status = DeleteSessionBook();
    entries.Reset();
    entries.Attach(MaxPrivateEntries, this);
    return status;
  };
  return DeleteInBulk(clear).restored;
}

Status CPrivEmailAB::DeleteHeldLists() {
  for (const CPrivEmailDL* each : lists) DeleteBookOf(BookKind::kPrivateList, each->Name());
  FreeLists();
  return kNoError;
}

Status CPrivEmailAB::ServerEntryCount(std::uint32_t* count) const {
  return BookAccess<CEmailEntry>(&TheAgent, BookKind::kPrivateEmail, kPrivateBook).Size(count);
}

Status CPrivEmailAB::ServerListCount(std::uint32_t* count) const {
  ABIdent selector(BookKind::kPrivateList, {});
  return TheAgent.IMSPListAB(&selector, nullptr, nullptr, count, 1);
}

}  // namespace quillkit
