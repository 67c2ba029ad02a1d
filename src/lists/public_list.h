// A public list, of e-mail or fax members. Its book owns it and sends its calls.

#ifndef QUILLKIT_LISTS_PUBLIC_LIST_H_
#define QUILLKIT_LISTS_PUBLIC_LIST_H_

#include <cstdint>
#include <string_view>

#include "bridge/long_timeout.h"
#include "lists/server_list.h"

namespace quillkit {

template <class Entry, class BookClass, BookKind kListKind>
class PublicList : public ServerList<Entry, BookClass, kListKind> {
 public:
  static const ClassRecord kClass;

  const ClassRecord* GetRuntimeClass() const override { return &kClass; }

  bool IsPublic() const override { return true; }

  // Stores the name and the book, which must outlive the list, and reads at most 512 members. The
  // count is that of the size query: members that the read did not deliver are blank. Once the size
  // is known, stores the number of delivered members in `*delivered`, unless that is null. Returns
  // the first status that is not 0: 21 comes with 512 members. Returns -1 and makes no server call
  // for an empty name; 0 and no change for a null book.
  // Server calls: IMSPSizeofAB, then IMSPReadAB unless the size is 0.
  Status Open(BookClass* newBook, std::string_view newName, std::uint32_t* delivered = nullptr);

  // Adds a member on the server. Returns the status. With 512 members records and returns code 24
  // and makes no server call. The status of the reload is ignored.
  // Server calls: IMSPCreateEntry; then those of Reload if `reload` is set.
  Status AddMember(Entry* entry, std::int32_t reload) override;

  // Reads the list again, as Open, but up to 200,000 members. Returns the first status that is not
  // 0. Server calls: those of Open.
  Status Reload() override;

  // Modifies each member in turn on the server, by its own name. Stops at the first status that is
  // not 0 and returns it; otherwise returns 0. Server calls: IMSPModifyEntry for each member.
  Status WriteMembers() override;

  // Drops the members in memory and deletes the list on the server under the long time-out. Stops
  // at the first status that is not 0 and returns it: if the list cannot be deleted, the server
  // keeps the long time-out. Without a book returns -1, after the members were dropped.
  // Server calls: those of CAgent::SetServerTimeout, IMSPDeleteAB, those of SetServerTimeout.
  Status DestroyList() override;

  // Drops the members in memory and empties the list on the server under the long time-out, through
  // TheAgent, with or without a book. Stops at the first status that is not 0 and returns it.
  // Server calls: IMSPIOCtl 2 and 1, IMSPClearAB, IMSPIOCtl 1.
  Status ClearMembers();

  // Replace the member of the entry's name; `key` is the name on the server. Return the count; -1
  // also if the changed member is not in memory. Server calls: IMSPModifyEntry.
  std::int32_t ModifyLocal(Entry* entry) { return OverwriteAfter(Access().Modify(entry), *entry); }
  std::int32_t RenameLocal(std::string_view key, Entry* entry) {
    return OverwriteAfter(Access().Rename(key, entry), *entry);
  }

 private:
  using Shared = ServerList<Entry, BookClass, kListKind>;
  using Shared::Access;
  using Shared::book;
  using Shared::members;
  using Shared::search;

  std::int32_t OverwriteAfter(Status changed, const Entry& entry) {
    return changed == kNoError && this->Overwrite(entry) ? members.count() : -1;
  }
};

template <class Entry, class BookClass, BookKind kListKind>
Status PublicList<Entry, BookClass, kListKind>::Open(BookClass* newBook, std::string_view newName,
                                                     std::uint32_t* delivered) {
  if (newBook == nullptr) return kNoError;
  Status status = this->InitName(newName);
  if (status != kNoError) return status;
  book = newBook;
  status = this->AllocateMembers(MaxListMembers);
  return status == kNoError ? this->FillMembers(delivered) : status;
}

template <class Entry, class BookClass, BookKind kListKind>
Status PublicList<Entry, BookClass, kListKind>::AddMember(Entry* entry, std::int32_t reload) {
  search.MoveTo(0);
  if (book == nullptr) return kRefused;
  if (this->IsFull()) {
    TheAgent.SetError(kBookFull);
    return kBookFull;
  }
  return this->ReloadAfter(Access().Create(entry), reload);
}

template <class Entry, class BookClass, BookKind kListKind>
Status PublicList<Entry, BookClass, kListKind>::Reload() {
  search.MoveTo(0);
  if (book == nullptr) return kRefused;
  const Status status = this->AllocateMembers(MaxServerMembers);
  if (status != kNoError) return status;
  this->FreeUnusedBlock();
  return this->FillMembers();
}

template <class Entry, class BookClass, BookKind kListKind>
Status PublicList<Entry, BookClass, kListKind>::WriteMembers() {
  const auto count = static_cast<std::uint32_t>(members.count());
  return Access().ModifyEach(members.data(), &count);
}

template <class Entry, class BookClass, BookKind kListKind>
Status PublicList<Entry, BookClass, kListKind>::DestroyList() {
  members.Free();
  BookAccess<Entry> list = Access();
  return LongTimeout(list.Agent(), LongTimeout::Unit::kSeconds).RunUntilFailure([&] {
    return list.DeleteBook();
  });
}

template <class Entry, class BookClass, BookKind kListKind>
Status PublicList<Entry, BookClass, kListKind>::ClearMembers() {
  members.Free();
  return LongTimeout(&TheAgent, LongTimeout::Unit::kMilliseconds).RunUntilFailure([this] {
    return this->SessionAccess().ClearBook();
  });
}

}  // namespace quillkit

#endif  // QUILLKIT_LISTS_PUBLIC_LIST_H_
