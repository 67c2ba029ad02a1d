// What public and private lists share: the book through which their members reach the server, and
// the two families of changes.
//
//   Member operations   change the server, then read the whole list again if `reload` is set;
//                       return the status of the change and ignore that of the reload
//   ...Local            change the server, then update the members in place; return -1 if the
//                       server refuses, unless they say otherwise
//
// With `reload`, the server calls of Reload follow those that a contract lists. In both families,
// if the server refuses the change, the members stay unchanged. Nothing is rolled back. Without a
// book every operation returns -1 and makes no server call, unless it says otherwise. Operations
// that list no server calls make no server call.
//
// `BookClass` provides
//   MembersOf(list)               the access to a list's members (appliance/book_access.h)
//   ServerListSize(list, count)   the number of members on the server
// The source of the book instantiates the templates: a list never includes its book.

#ifndef QUILLKIT_LISTS_SERVER_LIST_H_
#define QUILLKIT_LISTS_SERVER_LIST_H_

#include <algorithm>
#include <cstdint>
#include <string_view>

#include "appliance/after_change.h"
#include "appliance/book_access.h"
#include "bridge/the_agent.h"
#include "lists/distribution_list.h"

namespace quillkit {

// The most members that a reload reads: no book of an appliance holds more entries. A larger size
// from the server is cut to this.
inline constexpr std::int32_t MaxServerMembers = 200'000;

template <class Entry, class BookClass, BookKind kListKind>
class ServerList : public DistributionList<Entry> {
 public:
  BookClass* Book() const { return book; }

  // Stores the number of members on the server in `*count`, also for a list without a book. Returns
  // the status. Server calls: IMSPSizeofAB.
  Status GetMemberCount(std::uint32_t* count) override;

  // Reads the member that the entry names into the entry. Returns the status.
  // Server calls: IMSPReadEntryProperties.
  Status ReadMember(Entry* entry) override { return Access().ReadOne(entry); }

  // Adds a member, without a limit. Server calls: IMSPCreateEntry.
  Status AddMemberUnlimited(Entry* entry, std::int32_t reload) override {
    return ReloadAfter(Access().Create(entry), reload);
  }

  // ModifyMember replaces the member that the entry names, RenameMember the member `key`.
  // Server calls: IMSPModifyEntry.
  Status ModifyMember(Entry* entry, std::int32_t reload) override {
    return ReloadAfter(Access().Modify(entry), reload);
  }
  Status RenameMember(std::string_view key, Entry* entry, std::int32_t reload) override {
    return ReloadAfter(Access().Rename(key, entry), reload);
  }

  // Removes the member that the entry names. Server calls: IMSPDeleteEntry.
  Status RemoveMember(Entry* entry, std::int32_t reload) override;

  // Append the entry. Return the new count, or -1 on failure. With 512 members, record code 24,
  // return -1 and make no server call. AddLocalUnlimited is the same as AddLocal.
  // Server calls: IMSPCreateEntry.
  std::int32_t AddLocal(Entry* entry);
  std::int32_t AddLocalUnlimited(Entry* entry) { return AddLocal(entry); }

  // Removes the member that the entry names. Returns the new count; -1 on failure, also if the
  // removed member is not in memory; 0 for a list without members. Server calls: IMSPDeleteEntry.
  std::int32_t RemoveLocal(Entry* entry);

 protected:
  using DistributionList<Entry>::members;
  using DistributionList<Entry>::name;
  using DistributionList<Entry>::search;

  bool IsFull() const { return members.count() >= MaxListMembers; }

  // Returns the access to the members. Without a book its operations return -1.
  BookAccess<Entry> Access() const {
    return book != nullptr ? book->MembersOf(name) : BookAccess<Entry>(nullptr, kListKind, name);
  }

  // Returns the access to the list of this name through TheAgent. Needs no book.
  BookAccess<Entry> SessionAccess() const { return {&TheAgent, kListKind, name}; }

  Status ReloadAfter(Status changed, std::int32_t reload) {
    return LoadAfterChange(changed, reload, [this] { return this->Reload(); });
  }

  // Replaces the member of the entry's name by the entry. Returns whether there was one.
  bool Overwrite(const Entry& entry);

  // Reads the list's size and allocates that number of members for FillMembers, at most `limit`. A
  // size of 0 leaves no members and keeps the block. Returns 0; the status of the size, with the
  // members unchanged; or -1 without memory. Server calls: IMSPSizeofAB.
  Status AllocateMembers(std::int32_t limit);

  // Reads the list into the allocated members, if there are any. The count stays, and members that
  // were not delivered are blank. Stores the number that the server reported in `*delivered`,
  // unless that is null. Returns the status. Server calls: IMSPReadAB.
  Status FillMembers(std::uint32_t* delivered = nullptr);

  BookClass* book = nullptr;  // not owned
};

template <class Entry, class BookClass, BookKind kListKind>
Status ServerList<Entry, BookClass, kListKind>::GetMemberCount(std::uint32_t* count) {
  return book != nullptr ? book->ServerListSize(name, count) : SessionAccess().Size(count);
}

template <class Entry, class BookClass, BookKind kListKind>
Status ServerList<Entry, BookClass, kListKind>::RemoveMember(Entry* entry, std::int32_t reload) {
  search.MoveTo(0);
  return ReloadAfter(Access().Delete(*entry), reload);
}

template <class Entry, class BookClass, BookKind kListKind>
std::int32_t ServerList<Entry, BookClass, kListKind>::AddLocal(Entry* entry) {
  if (book == nullptr) return -1;
  if (IsFull()) {
    TheAgent.SetError(kBookFull);
    return -1;
  }
  if (Access().Create(entry) != kNoError) return -1;
  search.MoveTo(0);
  return members.Append(*entry);
}

template <class Entry, class BookClass, BookKind kListKind>
std::int32_t ServerList<Entry, BookClass, kListKind>::RemoveLocal(Entry* entry) {
  if (Access().Delete(*entry) != kNoError) return -1;
  const std::int32_t index = this->FindMember(*entry);
  if (index < 0) return -1;
  this->RemoveLocalAt(index);
  return members.count();
}

template <class Entry, class BookClass, BookKind kListKind>
bool ServerList<Entry, BookClass, kListKind>::Overwrite(const Entry& entry) {
  Entry* slot = members.At(this->FindMember(entry));
  if (slot == nullptr) return false;
  *slot = entry;
  return true;
}

template <class Entry, class BookClass, BookKind kListKind>
Status ServerList<Entry, BookClass, kListKind>::AllocateMembers(std::int32_t limit) {
  std::uint32_t size = 0;
  const Status status = GetMemberCount(&size);
  if (status != kNoError) return status;
  const auto count = static_cast<std::int32_t>(std::min(size, static_cast<std::uint32_t>(limit)));
  if (count > 0) return members.AllocateToRead(count) ? kNoError : kRefused;
  members.Clear();
  return kNoError;
}

template <class Entry, class BookClass, BookKind kListKind>
Status ServerList<Entry, BookClass, kListKind>::FillMembers(std::uint32_t* delivered) {
  const std::int32_t size = members.count();
  auto count = static_cast<std::uint32_t>(size);
  const Status status = count != 0 ? Access().ReadAll(members.data(), &count) : kNoError;
  KeepReply(members, status, count, 1);
  if (members.count() < size) members.Resize(size);
  if (delivered != nullptr) *delivered = count;
  return status;
}

// Opens a list that holds no members, to copy what the server has for it. Unlike after Open, the
// list holds only the members that were delivered: of more than 512 members (21), the first 512.
// Returns true if they were read, or if the server does not know the list (4 for its size);
// otherwise false, with no members.
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
