// The lists of a private book.

#include <memory>

#include "appliance/after_change.h"
#include "books/email_ab.h"
#include "books/priv_email_ab.h"
#include "books/user_record.h"
#include "bridge/the_agent.h"

namespace quillkit {

const char* CPrivEmailAB::ListName(std::int32_t index) const {
  const CPrivEmailDL* list = ListAt(index);
  return list != nullptr ? list->Name().c_str() : nullptr;
}

int CPrivEmailAB::CopyListName(std::int32_t index, std::string& name) const {
  const CPrivEmailDL* list = ListAt(index);
  if (list == nullptr) return 0;
  name = list->Name();
  return 1;
}

CPrivEmailDL* CPrivEmailAB::SetListAt(std::int32_t index, CPrivEmailDL* list) {
  return ListSet::SetListAt(index, list) == 0 ? list : nullptr;
}

bool CPrivEmailAB::AddList(CPrivEmailDL* list, std::int32_t reload) {
  if (list == nullptr || RecordListLimit()) return false;
  Status status = CreateServerList(list->Name());
  if (status == kNoError) status = CreateMembersOf(*list);
  if (reload != 0) LoadLists(1);
  return status == kNoError;
}

std::int32_t CPrivEmailAB::AddListLocal(CPrivEmailDL* list) {
  if (list == nullptr || RecordListLimit() || CreateServerList(list->Name()) != kNoError) return -1;
  CreateMembersOf(*list);
  return Append(list);
}

// Returns whether the copy has 100 lists. If so, records code 24.
bool CPrivEmailAB::RecordListLimit() const {
  if (ListsAreFull()) TheAgent.SetError(kBookFull);
  return ListsAreFull();
}

// Creates the members, even if earlier ones fail. Returns the last status, or 0 without members.
Status CPrivEmailAB::CreateMembersOf(const CPrivEmailDL& list) {
  Status status = kNoError;
  for (std::int32_t i = 0; i < list.Count(); ++i) {
    CEmailEntry member = *list.GetAt(i);
    status = CreateMember(list.Name(), &member);
  }
  return status;
}

bool CPrivEmailAB::DeleteList(const std::string& name, std::int32_t reload) {
  return ReloadAfter(DeleteServerList(name), reload) == kNoError;
}

Status CPrivEmailAB::ReloadAfter(Status changed, std::int32_t reload) {
  return LoadAfterChange(changed, reload, [this] { LoadLists(1); });
}

std::int32_t CPrivEmailAB::DeleteListLocal(const std::string& name) {
  if (DeleteServerList(name) != kNoError) return -1;
  RemoveList(name);
  return ListCount();
}

int CPrivEmailAB::RenameList(const std::string& name, const std::string& newName,
                             std::int32_t reload) {
  return ReloadAfter(RenameServerList(name, newName), reload) == kNoError ? 1 : 0;
}

int CPrivEmailAB::CopyList(const CPrivEmailDL& source, const std::string& newName,
                           std::int32_t reload) {
  CPrivEmailDL copy;
  return FillCopy(source, newName, &copy) && AddList(&copy, reload) ? 1 : 0;
}

int CPrivEmailAB::CopyListLocal(const CPrivEmailDL& source, const std::string& newName) {
  auto copy = std::make_unique<CPrivEmailDL>();
  return FillCopy(source, newName, copy.get()) && AddOwnedList(std::move(copy)) ? 1 : 0;
}

int CPrivEmailAB::CopyPublicList(CPubEmailDL* source, const std::string& newName,
                                 std::int32_t reload) {
  CPrivEmailDL copy;
  return FillCopyOfPublic(source, newName, &copy) && AddList(&copy, reload) ? 1 : 0;
}

int CPrivEmailAB::CopyPublicListLocal(CPubEmailDL* source, const std::string& newName) {
  auto copy = std::make_unique<CPrivEmailDL>();
  return FillCopyOfPublic(source, newName, copy.get()) && AddOwnedList(std::move(copy)) ? 1 : 0;
}

bool CPrivEmailAB::AddOwnedList(std::unique_ptr<CPrivEmailDL> list) {
  if (AddListLocal(list.get()) < 0) return false;
  static_cast<void>(list.release());
  return true;
}

// Gives `copy` the new name and the members that the server delivers for `source`. Returns whether
// they were read.
bool CPrivEmailAB::FillCopy(const CPrivEmailDL& source, const std::string& newName,
                            CPrivEmailDL* copy) {
  const bool isRead = OpenDelivered(*copy, this, source.Name());
  copy->SetName(newName);
  return isRead;
}

// The same with the members of a public list. If it holds none, they are read from the server
// through the e-mail book that is open on the appliance. Also fails without memory.
bool CPrivEmailAB::FillCopyOfPublic(CPubEmailDL* source, const std::string& newName,
                                    CPrivEmailDL* copy) {
  if (source->IsEmpty()) {
    const bool isSessionUser = user == nullptr || user->Owner() == nullptr;
    const CScanner& scanner =
        isSessionUser ? ScannerOrUnbound(TheAgent.ScannerAt(TheAgent.ScannerCount() - 1)) : Route();
    CEmailAB* book = scanner.EmailBook();
    if (book == nullptr) return false;
    if (!OpenDelivered(*source, book, std::string(source->Name()))) return false;
  }
  copy->SetName(newName);
  copy->SetBook(this);
  return copy->AssignFrom(*source) != 0;
}

}  // namespace quillkit
