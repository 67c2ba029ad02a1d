// A distribution list: a named, small book on the server, with all its members in one block.
// E-mail and fax lists are this template with their records. A list of this base class has no
// server: its server operations only return 0; DestroyList also drops the members.
//
// Invariants:
//   1. Members are in the server's order, followed by those appended locally.
//   2. A pointer to a member is valid until the next operation that changes the list.
//
// Server operations return a Status. Local operations return an index, a count, 1 or 0.

#ifndef QUILLKIT_LISTS_DISTRIBUTION_LIST_H_
#define QUILLKIT_LISTS_DISTRIBUTION_LIST_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "base/archive.h"
#include "base/entry_block.h"
#include "base/name_search.h"
#include "base/root_object.h"
#include "bridge/status.h"

namespace quillkit {

// The most members of a list: the limit of reading a list when it is opened, and of an addition.
inline constexpr std::int32_t MaxListMembers = 512;

template <class Entry>
class DistributionList : public RootObject {
 public:
  using Member = Entry;

  static const ClassRecord kClass;

  const ClassRecord* GetRuntimeClass() const override { return &kClass; }

  // The count, the name, the members. Load into a new list only: a list that has had members reads
  // count and name, leaves the members in the stream, and then has none.
  void Serialize(Archive& archive) override;

  // --- Virtual operations after those of the root, in this order in every list ---

  virtual Status GetMemberCount(std::uint32_t* /*count*/) { return kNoError; }
  virtual Status ReadMember(Entry* /*entry*/) { return kNoError; }
  virtual Status AddMember(Entry* entry, std::int32_t reload);
  virtual Status AddMemberUnlimited(Entry* /*entry*/, std::int32_t /*reload*/) { return kNoError; }
  virtual Status ModifyMember(Entry* /*entry*/, std::int32_t /*reload*/) { return kNoError; }
  virtual Status RenameMember(std::string_view /*key*/, Entry* /*entry*/, std::int32_t /*reload*/) {
    return kNoError;
  }
  virtual Status RemoveMember(Entry* entry, std::int32_t reload);
  virtual Status Reload();
  virtual Status WriteMembers() { return kNoError; }
  virtual Status DestroyList();
  virtual bool IsPublic() const { return false; }

  // --- The name, which is the list's key on the server ---

  void SetName(std::string_view text) { name = text; }
  const std::string& Name() const { return name; }
  void GetName(std::string& text) const { text = name; }

  // Returns 0, or -1 and no change for an empty name.
  Status InitName(std::string_view text);

  // --- Members ---

  // Takes over the block of `other`, which then has no members, to open this list in it.
  void TakeBlock(DistributionList& other) { members.TakeBlock(other.members); }

  // Frees the block if there are no members.
  void FreeUnusedBlock() {
    if (IsEmpty()) members.Free();
  }

  std::int32_t Count() const { return members.count(); }
  bool IsEmpty() const { return members.IsEmpty(); }

  // Returns null for an index out of range.
  Entry* GetAt(std::int32_t index) { return members.At(index); }
  const Entry* GetAt(std::int32_t index) const { return members.At(index); }

  // Copies the member to `*entry` with Entry::SetFrom. Returns the index, or -1 if out of range.
  std::int32_t CopyAt(std::int32_t index, Entry* entry) const;

  // Copies `entry` to the member with Entry::SetFrom. If `server` is 1, then calls ModifyMember
  // with a reload and returns its status; otherwise returns 0. Returns -1 on an empty list, and 0
  // for an index out of range. Server calls: those of ModifyMember if `server` is 1.
  Status SetAt(std::int32_t index, const Entry& entry, std::int32_t server);

  // Returns 1, or 0 for an index out of range.
  int RemoveLocalAt(std::int32_t index);

  // Removes the member in memory. If `server` is 1, then removes on the server, with a reload, the
  // member that is now at this index: the next one, or the removed one if it was the last. Returns
  // that status; otherwise the index. Returns 0 for an index out of range.
  // Server calls: those of RemoveMember if `server` is 1.
  Status RemoveAt(std::int32_t index, std::int32_t server);

  // Returns the index of the first member with exactly the entry's name; -1 if there is none; 0 on
  // an empty list.
  std::int32_t FindMember(const Entry& entry) const;

  // Search by name: the whole name, or its beginning if `exact` is 0. Without a hit they return the
  // last member: compare the name. They return null on an empty list, and FindNext also if no
  // member follows. FindNext continues as NameCursor does; after a change of the members it starts
  // at index 1.
  Entry* Find(std::string_view key, std::int32_t exact);
  Entry* FindNext(std::int32_t exact);

  // Returns the index of the latest hit; -1 after a Find without one, 0 after a change of the
  // members.
  std::int32_t SearchIndex() const { return search.Position(); }

 protected:
  std::string name;
  EntryBlock<Entry> members;
  NameCursor search;

 private:
  auto Names() const {
    return [this](std::int32_t index) { return GetAt(index)->name.View(); };
  }
  Entry* HitOrLast(std::int32_t hit) { return GetAt(hit >= 0 ? hit : Count() - 1); }
};

template <class Entry>
Status DistributionList<Entry>::AddMember(Entry* /*entry*/, std::int32_t /*reload*/) {
  search.MoveTo(0);
  return kNoError;
}

template <class Entry>
Status DistributionList<Entry>::RemoveMember(Entry* /*entry*/, std::int32_t /*reload*/) {
  search.MoveTo(0);
  return kNoError;
}

template <class Entry>
Status DistributionList<Entry>::Reload() {
  search.MoveTo(0);
  return kNoError;
}

template <class Entry>
Status DistributionList<Entry>::DestroyList() {
  members.Free();
  return kNoError;
}

template <class Entry>
Status DistributionList<Entry>::InitName(std::string_view text) {
  search.MoveTo(0);
  if (text.empty()) return kRefused;
  SetName(text);
  return kNoError;
}

template <class Entry>
std::int32_t DistributionList<Entry>::CopyAt(std::int32_t index, Entry* entry) const {
  const Entry* member = GetAt(index);
  if (member == nullptr) return -1;
  entry->SetFrom(*member);
  return index;
}

template <class Entry>
Status DistributionList<Entry>::SetAt(std::int32_t index, const Entry& entry, std::int32_t server) {
  if (IsEmpty()) return kRefused;
  Entry* member = GetAt(index);
  if (member == nullptr) return kNoError;
  member->SetFrom(entry);
  return server == 1 ? ModifyMember(member, 1) : kNoError;
}

template <class Entry>
int DistributionList<Entry>::RemoveLocalAt(std::int32_t index) {
  if (!members.RemoveAt(index)) return 0;
  search.MoveTo(0);
  return 1;
}

template <class Entry>
Status DistributionList<Entry>::RemoveAt(std::int32_t index, std::int32_t server) {
  if (RemoveLocalAt(index) == 0) return 0;
  if (server != 1) return index;
  Entry there = members.data()[index];  // in the block, also if it was the last member
  return RemoveMember(&there, 1);
}

template <class Entry>
std::int32_t DistributionList<Entry>::FindMember(const Entry& entry) const {
  return IsEmpty() ? 0 : FindName(0, Count(), entry.name.View(), true, Names());
}

template <class Entry>
Entry* DistributionList<Entry>::Find(std::string_view key, std::int32_t exact) {
  if (IsEmpty()) return nullptr;
  return HitOrLast(search.FindFirst(Count(), key, exact != 0, Names()));
}

template <class Entry>
Entry* DistributionList<Entry>::FindNext(std::int32_t exact) {
  if (search.Position() + 1 >= Count()) return nullptr;
  return HitOrLast(search.FindNext(Count(), exact != 0, Names()));
}

template <class Entry>
void DistributionList<Entry>::Serialize(Archive& archive) {
  auto count = static_cast<std::uint32_t>(Count());
  archive.Exchange(count);
  archive.Exchange(name);
  if (!archive.IsStoring()) {
    search.MoveTo(0);
    const bool isFresh = members.block() == nullptr;
    members.Free();
    if (!isFresh || !archive.Prepare(members, count)) return;
  }
  for (Entry& each : members) each.Serialize(archive);
}

}  // namespace quillkit

#endif  // QUILLKIT_LISTS_DISTRIBUTION_LIST_H_
