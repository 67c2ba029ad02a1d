// The distribution lists of a book: list objects in order, which the set owns, and the search among
// them by name. A list is valid until it is removed, or the lists are loaded or freed. Only
// AppendRows makes server calls.

#ifndef QUILLKIT_BOOKS_LIST_SET_H_
#define QUILLKIT_BOOKS_LIST_SET_H_

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <list>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "base/archive.h"
#include "base/name_search.h"
#include "bridge/records.h"

namespace quillkit {

template <class List>
class ListSet {
 public:
  ListSet() = default;
  ~ListSet() { FreeLists(); }
  ListSet(const ListSet&) = delete;
  ListSet& operator=(const ListSet&) = delete;

  std::int32_t ListCount() const { return static_cast<std::int32_t>(lists.size()); }

  // Returns the list at `index`, or null for an index out of range.
  List* ListAt(std::int32_t index) const;

  // Replaces the list at `index` by `list`, which the set then owns. The old one is released to the
  // caller, not deleted. Returns 0, or -1 for an index out of range or a null list.
  // REQUIRES: `list` is not in the set at another index.
  std::int32_t SetListAt(std::int32_t index, List* list);

  // Deletes the list object at `index`; the list on the server stays. Returns 1, or 0 for an index
  // out of range.
  int RemoveListAt(std::int32_t index);

  // Returns the first list with exactly this name, or null.
  List* FindList(std::string_view name) const;

  // Search by name: the whole name, or its beginning if `exact` is 0. Return 0. The hit is
  // FoundList(), which is null if there is none. FindNextList continues after the hit, with the
  // pattern of the latest FindFirstList that had one. Without a hit, or after the hit was removed,
  // it finds nothing.
  int FindFirstList(std::string_view pattern, std::int32_t exact);
  int FindNextList(std::int32_t exact);
  List* FoundList() const { return searchPos != lists.end() ? *searchPos : nullptr; }

  // Deletes all list objects; the lists on the server stay.
  void FreeLists();

 protected:
  // Adds a list at the end, which the set then owns. Returns the new count. If an allocation fails,
  // throws; the list is still the caller's.
  std::int32_t Append(List* list);

  // Adds a list for each row. With `withMembers`, opens it on the book and ignores the status;
  // otherwise sets only its name. The opened lists take over the blocks of the `replaced` lists.
  // Server calls: those of Open for each list if `withMembers` is set.
  template <class Book>
  void AppendRows(std::span<const ABIdent> rows, Book* book, std::int32_t withMembers,
                  const ListSet& replaced);

  // Moves all lists to `other`. REQUIRES: `other` is empty.
  void MoveListsTo(ListSet& other) {
    lists.swap(other.lists);
    searchPos = lists.end();
  }

  // Deletes the first list with exactly this name, if there is one.
  void RemoveList(std::string_view name) { Erase(Locate(name)); }

  // The count, and each list with its class. Loading replaces the lists.
  void SerializeLists(Archive& archive);

  std::list<List*> lists;

 private:
  using Position = typename std::list<List*>::const_iterator;

  Position At(std::int32_t index) const;
  Position Locate(std::string_view name) const { return FindFrom(lists.begin(), name, true); }
  Position FindFrom(Position from, std::string_view pattern, bool wholeName) const;
  bool Erase(Position position);

  Position searchPos = lists.end();  // the end if there is no hit
  std::string searchName;
};

template <class List>
List* ListSet<List>::ListAt(std::int32_t index) const {
  const Position position = At(index);
  return position != lists.end() ? *position : nullptr;
}

template <class List>
std::int32_t ListSet<List>::SetListAt(std::int32_t index, List* list) {
  if (list == nullptr || index < 0 || index >= ListCount()) return -1;
  *std::next(lists.begin(), index) = list;
  return 0;
}

template <class List>
int ListSet<List>::RemoveListAt(std::int32_t index) {
  return Erase(At(index)) ? 1 : 0;
}

template <class List>
List* ListSet<List>::FindList(std::string_view name) const {
  const Position position = Locate(name);
  return position != lists.end() ? *position : nullptr;
}

template <class List>
int ListSet<List>::FindFirstList(std::string_view pattern, std::int32_t exact) {
  searchPos = FindFrom(lists.begin(), pattern, exact != 0);
  if (searchPos != lists.end()) searchName = pattern;
  return 0;
}

template <class List>
int ListSet<List>::FindNextList(std::int32_t exact) {
  if (searchPos != lists.end()) {
    searchPos = FindFrom(std::next(searchPos), searchName, exact != 0);
  }
  return 0;
}

template <class List>
void ListSet<List>::FreeLists() {
  for (const List* each : lists) delete each;
  lists.clear();
  searchPos = lists.end();
}

template <class List>
std::int32_t ListSet<List>::Append(List* list) {
  lists.push_back(list);
  return ListCount();
}

template <class List>
template <class Book>
void ListSet<List>::AppendRows(std::span<const ABIdent> rows, Book* book, std::int32_t withMembers,
                               const ListSet& replaced) {
  auto spare = replaced.lists.begin();
  for (const ABIdent& row : rows) {
    auto list = std::make_unique<List>();
    if (withMembers != 0) {
      if (spare != replaced.lists.end()) list->TakeBlock(**spare++);
      list->Open(book, row.name.View());
      list->FreeUnusedBlock();
    } else {
      list->SetName(row.name.View());
    }
    Append(list.get());
    static_cast<void>(list.release());
  }
}

template <class List>
void ListSet<List>::SerializeLists(Archive& archive) {
  if (!archive.IsStoring()) FreeLists();
  archive.Exchange(lists);
}

template <class List>
typename ListSet<List>::Position ListSet<List>::At(std::int32_t index) const {
  return index >= 0 && index < ListCount() ? std::next(lists.begin(), index) : lists.end();
}

template <class List>
typename ListSet<List>::Position ListSet<List>::FindFrom(Position from, std::string_view pattern,
                                                         bool wholeName) const {
  return std::find_if(from, Position(lists.end()), [&](const List* each) {
    return NameMatches(each->Name(), pattern, wholeName);
  });
}

template <class List>
bool ListSet<List>::Erase(Position position) {
  if (position == lists.end()) return false;
  if (position == searchPos) searchPos = lists.end();
  const std::unique_ptr<List> gone(*position);
  lists.erase(position);
  return true;
}

}  // namespace quillkit

#endif  // QUILLKIT_BOOKS_LIST_SET_H_
