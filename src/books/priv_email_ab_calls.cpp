// What a private book asks of the server about one entry or one list.

#include "appliance/scanner.h"
#include "books/priv_email_ab.h"
#include "books/private_route.h"
#include "books/user_record.h"

namespace quillkit {

Status CPrivEmailAB::AddEntry(CEmailEntry* entry) {
  return EntriesAreFull() ? kBookFull : CreateServerEntry(entry);
}

Status CPrivEmailAB::CreateServerEntry(CEmailEntry* entry) {
  if (user != nullptr) return user->CreatePrivateEntry(entry);
  return PrivateRoute(nullptr).PrivateEntries().Create(entry);
}

Status CPrivEmailAB::ReadEntry(CEmailEntry* entry) {
  return Route().PrivateEntries().ReadOne(entry);
}

Status CPrivEmailAB::ReadEntries(KeyRange* range, CEmailEntry* records, std::uint32_t* count,
                                 std::int32_t direction) {
  return Route().PrivateEntries().Read(range, records, count, direction);
}

Status CPrivEmailAB::ModifyEntry(CEmailEntry* entry) {
  return Route().PrivateEntries().Modify(entry);
}

Status CPrivEmailAB::RenameEntry(std::string_view oldName, CEmailEntry* entry) {
  return Route().PrivateEntries().Rename(oldName, entry);
}

Status CPrivEmailAB::DeleteEntry(CEmailEntry* entry) {
  return Route().PrivateEntries().Delete(*entry);
}

Status CPrivEmailAB::CreateServerList(std::string_view list) {
  return ListsAreFull() ? kBookFull : MembersOf(list).CreateBook();
}

Status CPrivEmailAB::CreateListWithMembers(std::string_view list, CEmailEntry* members,
                                           const std::uint32_t* count) {
  return *count != 0 ? Route().CreatePrivateMembers(list, members, count) : kNoError;
}

Status CPrivEmailAB::ListLists(ABIdent* books, std::uint32_t* count) {
  return Route().ListPrivateLists(books, count);
}

Status CPrivEmailAB::ListSize(std::string_view list, std::uint32_t* count) {
  return Route().SizeofPrivateList(std::string(list), count);
}

Status CPrivEmailAB::AddMember(std::string_view list, CEmailEntry* entry) {
  return EntriesAreFull() ? kBookFull : CreateMember(list, entry);
}

Status CPrivEmailAB::CreateMember(std::string_view list, CEmailEntry* entry) {
  return MembersOf(list).Create(entry);
}

Status CPrivEmailAB::ReadMember(std::string_view list, CEmailEntry* entry) {
  return MembersOf(list).ReadOne(entry);
}

Status CPrivEmailAB::ReadMembers(std::string_view list, CEmailEntry* records,
                                 std::uint32_t* count) {
  return MembersOf(list).ReadAll(records, count);
}

Status CPrivEmailAB::ModifyMember(std::string_view list, CEmailEntry* entry) {
  return MembersOf(list).Modify(entry);
}

Status CPrivEmailAB::RenameMember(std::string_view list, std::string_view oldName,
                                  CEmailEntry* entry) {
  return MembersOf(list).Rename(oldName, entry);
}

Status CPrivEmailAB::DeleteMember(std::string_view list, CEmailEntry* entry) {
  return MembersOf(list).Delete(*entry);
}

Status CPrivEmailAB::DeleteServerList(std::string_view list) {
  return MembersOf(list).DeleteBook();
}

Status CPrivEmailAB::RenameServerList(const std::string& name, const std::string& newName) {
  return Route().RenamePrivateList(name, newName);
}

BookAccess<CEmailEntry> CPrivEmailAB::MembersOf(std::string_view list) const {
  return Route().PrivateList(list);
}

}  // namespace quillkit
