// A distribution list: a named, small book on the server, with all its members held in one block.
// E-mail and fax lists are this template with their record; a list of this base has no server, and
// its slots do nothing.
//
// Invariants:
//   1. Members stand in the server's order, followed by what was appended locally.
//   2. A member's address is good until the next operation that changes the list.
//
// Results are not uniform: the server operations give a Status, the local ones an index, a count, 1
// or 0.

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

// The most members of a list: what it takes of a list when it is opened, and the limit of an
// addition.
inline constexpr std::int32_t MaxListMembers = 512;

template <class Entry>
class DistributionList : public RootObject {
 public:
  using Member = Entry;

  // The count, the name, the members. Loading into a list that has had members already takes count
  // and name, and leaves the members in the stream and the list without any: load into a fresh one.
  void Serialize(Archive& archive) override;

  // --- Slots behind those of the root, in this order in every list ---

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

  // 0, or -1 and no change for an empty name.
  Status InitName(std::string_view text);

  // --- Members ---

  std::int32_t Count() const { return members.count(); }
  bool IsEmpty() const { return members.IsEmpty(); }

  // Null for an index out of range.
  Entry* GetAt(std::int32_t index) { return members.At(index); }
  const Entry* GetAt(std::int32_t index) const { return members.At(index); }

  // Entry::SetFrom of the member on `*entry`; the index, or -1 out of range.
  std::int32_t CopyAt(std::int32_t index, Entry* entry) const;

  // Entry::SetFrom of `entry` on the member. With `server` 1 then ModifyMember with it and a
  // reload, whose status is the result; else 0. -1 on an empty list, 0 for an index out of range.
  Status SetAt(std::int32_t index, const Entry& entry, std::int32_t server);

  // 1, or 0 for an index out of range.
  int RemoveLocalAt(std::int32_t index);

  // Removes the member here. With `server` 1 what then stands at its place is removed on the
  // server, with a reload, whose status is the result: the member behind it, or itself if it was
  // the last. Else the index. 0 for an index out of range.
  Status RemoveAt(std::int32_t index, std::int32_t server);

  // The first member of exactly the entry's name; -1 for none, but 0 on an empty list.
  std::int32_t FindMember(const Entry& entry) const;

  // Search by name: whole, or by as many characters as the key has where `exact` is 0. A search
  // that finds nothing gives the last member: look at the name. FindNext goes on behind the last
  // hit with the key of the last Find that hit, from the beginning behind a Find that missed, and
  // from the second member on behind a change of the members; null when no member follows.
  Entry* Find(std::string_view key, std::int32_t exact);
  Entry* FindNext(std::int32_t exact);

  // The index of the last hit; -1 behind a Find that missed, 0 behind a change of the members.
  std::int32_t SearchIndex() const { return searchIndex; }

 protected:
  std::int32_t IndexOf(std::string_view key, std::int32_t start, bool wholeName) const;
  Entry* FindFrom(std::int32_t start, std::string_view key, std::int32_t exact);

  std::string name;
  EntryBlock<Entry> members;
  std::int32_t searchIndex = 0;
  std::string searchKey;
};

template <class Entry>
Status DistributionList<Entry>::AddMember(Entry* /*entry*/, std::int32_t /*reload*/) {
  searchIndex = 0;
  return kNoError;
}

template <class Entry>
Status DistributionList<Entry>::RemoveMember(Entry* /*entry*/, std::int32_t /*reload*/) {
  searchIndex = 0;
  return kNoError;
}

template <class Entry>
Status DistributionList<Entry>::Reload() {
  searchIndex = 0;
  return kNoError;
}

template <class Entry>
Status DistributionList<Entry>::DestroyList() {
  members.Free();
  return kNoError;
}

template <class Entry>
Status DistributionList<Entry>::InitName(std::string_view text) {
  searchIndex = 0;
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
  searchIndex = 0;
  return 1;
}

template <class Entry>
Status DistributionList<Entry>::RemoveAt(std::int32_t index, std::int32_t server) {
  if (RemoveLocalAt(index) == 0) return 0;
  if (server != 1) return index;
  Entry there = members.data()[index];  // the block keeps its size
  return RemoveMember(&there, 1);
}

template <class Entry>
std::int32_t DistributionList<Entry>::FindMember(const Entry& entry) const {
  return IsEmpty() ? 0 : IndexOf(entry.name.View(), 0, true);
}

template <class Entry>
Entry* DistributionList<Entry>::Find(std::string_view key, std::int32_t exact) {
  if (IsEmpty()) return nullptr;
  searchIndex = -1;
  Entry* found = FindFrom(0, key, exact);
  if (searchIndex >= 0) searchKey = key;
  return found;
}

template <class Entry>
Entry* DistributionList<Entry>::FindNext(std::int32_t exact) {
  if (searchIndex + 1 >= Count()) return nullptr;
  return FindFrom(searchIndex + 1, searchKey, exact);
}

// The next match, to which the search then stands, or the last member.
template <class Entry>
Entry* DistributionList<Entry>::FindFrom(std::int32_t start, std::string_view key,
                                         std::int32_t exact) {
  const std::int32_t hit = IndexOf(key, start, exact != 0);
  if (hit < 0) return GetAt(Count() - 1);
  searchIndex = hit;
  return GetAt(hit);
}

template <class Entry>
std::int32_t DistributionList<Entry>::IndexOf(std::string_view key, std::int32_t start,
                                              bool wholeName) const {
  return FindName(start, Count(), key, wholeName,
                  [&](std::int32_t i) { return GetAt(i)->name.View(); });
}

template <class Entry>
void DistributionList<Entry>::Serialize(Archive& archive) {
  auto count = static_cast<std::uint32_t>(Count());
  archive.Exchange(count);
  archive.Exchange(name);
  if (!archive.IsStoring()) {
    searchIndex = 0;
    const bool isFresh = members.block() == nullptr;
    members.Free();
    if (!isFresh || !archive.Prepare(members, count)) return;
  }
  for (Entry& each : members) each.Serialize(archive);
}

}  // namespace quillkit

#endif  // QUILLKIT_LISTS_DISTRIBUTION_LIST_H_
