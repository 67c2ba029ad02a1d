// The half of a book that looks after its public lists: held whole in a set, and kept in step with
// the server.
//
// The server comes first and nothing is undone. Without an appliance everything that needs it
// fails, -1 or false, and makes no call.
//
// `Book`, which derives from this, offers
//   MembersOf(list)              the access to a list's members (appliance/book_access.h)
//   ServerListCount(count)       the server's number of lists
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

#include "books/list_set.h"
#include "bridge/long_timeout.h"
#include "bridge/records.h"
#include "bridge/the_agent.h"

namespace quillkit {

// The most public lists of an appliance: the rows of an enumeration, and the limit of an addition.
inline constexpr std::uint32_t MaxPublicLists = 512;

template <class Book, class List>
class PublicListBook : public ListSet<List> {
 public:
  // Replaces the lists by those of the server: IMSPListAB for at most 512, and `withMembers` each
  // list's Open, whose status is ignored. The status of the enumeration, with 4 (no lists) as 0; 21
  // comes with the first 512. Lists that were read without members have a name alone.
  Status LoadLists(std::int32_t withMembers);

  // Deletes every list that is held here on the server, whatever comes of it, and frees them all.
  // Calls: IMSPIOCtl 2 and 1, IMSPDeleteAB a list, IMSPIOCtl 1. 0; a time-out that cannot be read
  // or set ends it with that status.
  Status DeleteAllLists();

 protected:
  // Adds the list to the server and here, where it is owned from then on: the new count, or -1, and
  // it stays the caller's. -1 also for null.
  std::int32_t Keep(List* list);

  // Adds the list to the server alone, and with `reload` loads the lists anew. Whether all went
  // well.
  bool Create(const List& list, std::int32_t reload);

  // Deletes the list of this name on the server and here: the count, also when it was not held
  // here, or -1.
  std::int32_t Drop(std::string_view name);

  // Deletes the list of this name on the server alone, and with `reload` loads the lists anew.
  // Whether all went well.
  bool Delete(std::string_view name, std::int32_t reload);

  // A list with a new name and the members that the server delivers for another, as OpenDelivered
  // reads them; null when they cannot be read.
  std::unique_ptr<List> Copy(const List& source, std::string_view newName);

 private:
  Book* Self() { return static_cast<Book*>(this); }
  bool CreateOnServer(const List& list);
  bool Reload(std::int32_t reload) { return reload == 0 || LoadLists(1) == kNoError; }
};

template <class Book, class List>
Status PublicListBook<Book, List>::LoadLists(std::int32_t withMembers) {
  this->FreeLists();
  std::vector<ABIdent> rows(MaxPublicLists);
  auto count = static_cast<std::uint32_t>(rows.size());
  const Status status = Self()->EnumerateLists(rows.data(), &count);
  if (status == kDataNotFound) return kNoError;
  if (status != kNoError && status != kMoreData) return status;
  this->AppendRows(std::span(rows.data(), count), Self(), withMembers);
  return status;
}

template <class Book, class List>
Status PublicListBook<Book, List>::DeleteAllLists() {
  LongTimeout timeout(Self()->Agent());
  const Status status = timeout.Raise();
  if (status != kNoError) return status;
  for (const List* each : this->lists) Self()->MembersOf(each->Name()).DeleteBook();
  this->FreeLists();
  timeout.Restore();
  return kNoError;
}

template <class Book, class List>
std::int32_t PublicListBook<Book, List>::Keep(List* list) {
  return list != nullptr && CreateOnServer(*list) ? this->Append(std::unique_ptr<List>(list)) : -1;
}

template <class Book, class List>
bool PublicListBook<Book, List>::Create(const List& list, std::int32_t reload) {
  return CreateOnServer(list) && Reload(reload);
}

// Creates the list and its members, whose refusals go unnoticed. At 512 lists on the server code 24
// is recorded; the status of the count is not looked at.
template <class Book, class List>
bool PublicListBook<Book, List>::CreateOnServer(const List& list) {
  std::uint32_t count = 0;
  Self()->ServerListCount(&count);
  if (count >= MaxPublicLists) {
    TheAgent.SetError(kBookFull);
    return false;
  }
  auto members = Self()->MembersOf(list.Name());
  if (members.CreateBook() != kNoError) return false;
  for (std::int32_t i = 0; i < list.Count(); ++i) {
    typename List::Member member;
    list.CopyAt(i, &member);
    members.Create(&member);
  }
  return true;
}

template <class Book, class List>
std::int32_t PublicListBook<Book, List>::Drop(std::string_view name) {
  if (Self()->MembersOf(name).DeleteBook() != kNoError) return -1;
  this->RemoveList(name);
  return this->ListCount();
}

template <class Book, class List>
bool PublicListBook<Book, List>::Delete(std::string_view name, std::int32_t reload) {
  return Self()->MembersOf(name).DeleteBook() == kNoError && Reload(reload);
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
