// The half of a book that manages its public lists: holds them in memory and changes them on the
// server.
//
// An operation changes the server first, then the memory. Nothing is rolled back. Without an
// appliance, operations that need one return -1 or false and make no server call.
//
// `Book`, which derives from this class, provides
//   MembersOf(list)              the access to a list's members (appliance/book_access.h)
//   ServerListCount(count)       the number of lists on the server
//   EnumerateLists(rows, count)  their names
//   Agent()                      the agent of the long time-out; it may be null

#ifndef QUILLKIT_BOOKS_PUBLIC_LIST_BOOK_H_
#define QUILLKIT_BOOKS_PUBLIC_LIST_BOOK_H_

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "appliance/after_change.h"
#include "books/list_set.h"
#include "bridge/long_timeout.h"
#include "bridge/records.h"
#include "bridge/the_agent.h"
#include "lists/server_list.h"

namespace quillkit {

// The most public lists of an appliance: the capacity of an enumeration, and the limit of an
// addition.
inline constexpr std::uint32_t MaxPublicLists = 512;

template <class Book, class List>
class PublicListBook : public ListSet<List> {
 public:
  // Replaces the lists by those of the server, at most 512. With `withMembers` opens each list and
  // ignores its status; otherwise the lists have a name only. Returns the status of the
  // enumeration: 0 also for no lists (4), and 21 with the first 512. Any other status leaves no
  // lists.
  // Server calls: IMSPListAB; then those of PublicList::Open for each list if `withMembers` is set.
  Status LoadLists(std::int32_t withMembers);

  // Deletes every list in memory on the server, ignores failures, and frees the lists. Returns 0.
  // If the time-out cannot be read or set, returns that status and does nothing.
  // Server calls: IMSPIOCtl 2 and 1, IMSPDeleteAB for each list, IMSPIOCtl 1.
  Status DeleteAllLists();

 protected:
  // Adds the list on the server and in memory. The set then owns it. Returns the new count; or -1,
  // also for null, and the caller keeps the list.
  std::int32_t CreateAndAdd(List* list);

  // Adds the list on the server only, then with `reload` loads the lists. Returns whether both
  // succeeded.
  bool Create(const List& list, std::int32_t reload);

  // Deletes the list of this name on the server and in memory. Returns the count, also if there was
  // none in memory; or -1.
  std::int32_t DeleteAndRemove(std::string_view name);

  // Deletes the list of this name on the server only, then with `reload` loads the lists. Returns
  // whether both succeeded.
  bool Delete(std::string_view name, std::int32_t reload);

  // Returns a list of the new name with the members that the server delivers for `source`, as
  // OpenDelivered reads them; or null if they cannot be read.
  std::unique_ptr<List> Copy(const List& source, std::string_view newName);

 private:
  Book* Self() { return static_cast<Book*>(this); }
  Status CreateOnServer(const List& list);
  bool ReloadAfter(Status changed, std::int32_t reload) {
    return AfterChange(changed, reload, [this] { return LoadLists(1); }) == kNoError;
  }
};

template <class Book, class List>
Status PublicListBook<Book, List>::LoadLists(std::int32_t withMembers) {
  ListSet<List> replaced;
  this->MoveListsTo(replaced);
  std::vector<ABIdent> rows(MaxPublicLists);
  auto count = static_cast<std::uint32_t>(rows.size());
  const Status status = Self()->EnumerateLists(rows.data(), &count);
  if (status == kDataNotFound) return kNoError;
  if (status != kNoError && status != kMoreData) return status;
  this->AppendRows(std::span(rows.data(), count), Self(), withMembers, replaced);
  return status;
}

template <class Book, class List>
Status PublicListBook<Book, List>::DeleteAllLists() {
  LongTimeout timeout(Self()->Agent(), LongTimeout::Unit::kMilliseconds);
  return timeout
      .RunAndRestore([this] {
        for (const List* each : this->lists) Self()->MembersOf(each->Name()).DeleteBook();
        this->FreeLists();
        return kNoError;
      })
      .work;
}

template <class Book, class List>
std::int32_t PublicListBook<Book, List>::CreateAndAdd(List* list) {
  if (list == nullptr || CreateOnServer(*list) != kNoError) return -1;
  return this->Append(list);
}

template <class Book, class List>
bool PublicListBook<Book, List>::Create(const List& list, std::int32_t reload) {
  return ReloadAfter(CreateOnServer(list), reload);
}

// Creates the list and its members, and ignores the status of the members and of the count. With
// 512 lists on the server it records and returns 24.
template <class Book, class List>
Status PublicListBook<Book, List>::CreateOnServer(const List& list) {
  std::uint32_t count = 0;
  Self()->ServerListCount(&count);
  if (count >= MaxPublicLists) {
    TheAgent.SetError(kBookFull);
    return kBookFull;
  }
  auto members = Self()->MembersOf(list.Name());
  const Status created = members.CreateBook();
  if (created != kNoError) return created;
  for (std::int32_t i = 0; i < list.Count(); ++i) {
    typename List::Member member;
    list.CopyAt(i, &member);
    members.Create(&member);
  }
  return kNoError;
}

template <class Book, class List>
std::int32_t PublicListBook<Book, List>::DeleteAndRemove(std::string_view name) {
  if (Self()->MembersOf(name).DeleteBook() != kNoError) return -1;
  this->RemoveList(name);
  return this->ListCount();
}

template <class Book, class List>
bool PublicListBook<Book, List>::Delete(std::string_view name, std::int32_t reload) {
  return ReloadAfter(Self()->MembersOf(name).DeleteBook(), reload);
}

template <class Book, class List>
std::unique_ptr<List> PublicListBook<Book, List>::Copy(const List& source,
                                                       std::string_view newName) {
  auto copy = std::make_unique<List>();
  if (!OpenDelivered(*copy, Self(), source.Name())) return nullptr;
  copy->SetName(newName);
  return copy;
}

}  // namespace quillkit

#endif  // QUILLKIT_BOOKS_PUBLIC_LIST_BOOK_H_
