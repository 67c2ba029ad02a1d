// What public and private lists share: the book through which their members reach the server, and
// the two families of changes.
//
//   Member operations   change the server and, if asked, read the whole list anew; the server's
//                       status, whatever the reload gives
//   ...Local            change the server and then patch the members in place; -1 when the server
//                       refuses
//
// The server comes first in both: a refusal leaves the members as they were, and nothing is undone.
// Without a book every operation gives -1 and makes no call, unless it says otherwise.
//
// `BookClass` offers MembersOf(list), the access to a list's members (appliance/book_access.h), and
// ServerListSize(list, count).

#ifndef QUILLKIT_LISTS_SERVER_LIST_H_
#define QUILLKIT_LISTS_SERVER_LIST_H_

#include <algorithm>
#include <cstdint>
#include <string_view>

#include "appliance/book_access.h"
#include "bridge/the_agent.h"
#include "lists/distribution_list.h"

namespace quillkit {

// No book of the appliance holds more entries: a server that tells of more is not believed.
inline constexpr std::int32_t MaxServerMembers = 200'000;

template <class Base, class BookClass, BookKind kListKind>
class ServerList : public Base {
 public:
  using Member = typename Base::Member;

  BookClass* Book() const { return book; }

  // The server's number of members: IMSPSizeofAB, also on a list without a book.
  Status GetMemberCount(std::uint32_t* count) override;

  // IMSPReadEntryProperties of the member that the entry names, into the entry.
  Status ReadMember(Member* entry) override { return Access().ReadOne(entry); }

  // IMSPCreateEntry, with no limit.
  Status AddMemberUnlimited(Member* entry, std::int32_t reload) override {
    return Finish(Access().Create(entry), reload);
  }

  // IMSPModifyEntry of the member that the entry names, or of `key`.
  Status ModifyMember(Member* entry, std::int32_t reload) override {
    return Finish(Access().Modify(entry), reload);
  }
  Status RenameMember(std::string_view key, Member* entry, std::int32_t reload) override {
    return Finish(Access().Rename(key, entry), reload);
  }

  // IMSPDeleteEntry of the member that the entry names.
  Status RemoveMember(Member* entry, std::int32_t reload) override;

  // Adds the entry at the end: the new count. At 512 members code 24 is recorded, and -1 given with
  // no call. The two are the same.
  std::int32_t AddLocal(Member* entry);
  std::int32_t AddLocalUnlimited(Member* entry) { return AddLocal(entry); }

  // The new count; -1 also when the server dropped a member that is not held here. A list without
  // members gives 0.
  std::int32_t RemoveLocal(Member* entry);

 protected:
  using Base::members;
  using Base::name;
  using Base::searchIndex;

  bool IsFull() const { return members.count() >= MaxListMembers; }

  // The members on the server; without a book an access that gives -1 to everything.
  BookAccess<Member> Access() const {
    return book != nullptr ? book->MembersOf(name) : BookAccess<Member>(nullptr, kListKind, name);
  }

  // What a plain change ends in: its own status, after a reload where it is asked for.
  Status Finish(Status changed, std::int32_t reload);

  // Overwrites the member of the entry's name with the entry. Whether there was one.
  bool Overwrite(const Member& entry);

  // Asks for the list's size, and makes room for so many members, at most `limit`, blank as yet.
  // The status of the size, with the members unchanged where it is not 0; -1 when memory is
  // refused. A size of 0 leaves no members and keeps the block.
  Status MakeRoom(std::int32_t limit);

  // Reads the list into the room, if there is any: IMSPReadAB. The count stays, whatever was
  // delivered; `*delivered`, unless it is null, becomes the number that was.
  Status ReadRoom(std::uint32_t* delivered = nullptr);

  BookClass* book = nullptr;  // not owned
};

template <class Base, class BookClass, BookKind kListKind>
Status ServerList<Base, BookClass, kListKind>::GetMemberCount(std::uint32_t* count) {
  if (book != nullptr) return book->ServerListSize(name, count);
  return BookAccess<Member>(&TheAgent, kListKind, name).Size(count);
}

template <class Base, class BookClass, BookKind kListKind>
Status ServerList<Base, BookClass, kListKind>::RemoveMember(Member* entry, std::int32_t reload) {
  searchIndex = 0;
  return Finish(Access().Delete(*entry), reload);
}

template <class Base, class BookClass, BookKind kListKind>
Status ServerList<Base, BookClass, kListKind>::Finish(Status changed, std::int32_t reload) {
  if (changed == kNoError && reload != 0) this->Reload();
  return changed;
}

template <class Base, class BookClass, BookKind kListKind>
std::int32_t ServerList<Base, BookClass, kListKind>::AddLocal(Member* entry) {
  if (book == nullptr) return -1;
  if (IsFull()) {
    TheAgent.SetError(kBookFull);
    return -1;
  }
  if (Access().Create(entry) != kNoError) return -1;
  searchIndex = 0;
  return members.Append(*entry);
}

template <class Base, class BookClass, BookKind kListKind>
std::int32_t ServerList<Base, BookClass, kListKind>::RemoveLocal(Member* entry) {
  if (Access().Delete(*entry) != kNoError) return -1;
  const std::int32_t index = this->FindMember(*entry);
  if (index < 0) return -1;
  this->RemoveLocalAt(index);
  return members.count();
}

template <class Base, class BookClass, BookKind kListKind>
bool ServerList<Base, BookClass, kListKind>::Overwrite(const Member& entry) {
  Member* slot = members.At(this->FindMember(entry));
  if (slot == nullptr) return false;
  *slot = entry;
  return true;
}

template <class Base, class BookClass, BookKind kListKind>
Status ServerList<Base, BookClass, kListKind>::MakeRoom(std::int32_t limit) {
  std::uint32_t size = 0;
  const Status status = GetMemberCount(&size);
  if (status != kNoError) return status;
  const auto count = static_cast<std::int32_t>(std::min(size, static_cast<std::uint32_t>(limit)));
  if (count > 0) return members.Allocate(count) ? kNoError : kRefused;
  members.Clear();
  return kNoError;
}

template <class Base, class BookClass, BookKind kListKind>
Status ServerList<Base, BookClass, kListKind>::ReadRoom(std::uint32_t* delivered) {
  auto count = static_cast<std::uint32_t>(members.count());
  const Status status = count != 0 ? Access().ReadAll(members.data(), &count) : kNoError;
  std::for_each(members.begin() + count, members.end(), [](Member& each) { each.Blank(); });
  if (delivered != nullptr) *delivered = count;
  return status;
}

// Opens a list that holds no members, to copy what the server has for it: unlike after Open, the
// list holds the members that were delivered and no others. Returns whether they could be read; if
// not, the list holds none. A list that the server does not know (4 for its size) has none. Of more
// than 512 members (21) the first 512 are taken.
template <class List, class Book>
bool OpenDelivered(List& list, Book* book, std::string_view name) {
  std::uint32_t delivered = 0;
  const Status status = list.Open(book, name, &delivered);
  const bool isUnknown = status == kDataNotFound && list.IsEmpty();
  const bool isRead = status == kNoError || (status == kMoreData && !list.IsEmpty());
  const std::int32_t kept = isRead ? static_cast<std::int32_t>(delivered) : 0;
  while (list.Count() > kept) list.RemoveLocalAt(list.Count() - 1);
  return isRead || isUnknown;
}

}  // namespace quillkit

#endif  // QUILLKIT_LISTS_SERVER_LIST_H_
