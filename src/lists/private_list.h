// A private list, of one user's private book. The book decides the route to the server.
//
// A member whose flags are 0 refers to the public book; its address is blanked when the list is
// written to the server. A member whose flags are 1 is an entry of the private book.
//
// `BookClass` provides what ServerList asks for, and AddMember, CreateMember,
// CreateListWithMembers, LoadEntries, EntriesLoaded, EntryCount, EntryAt and FindEntry of
// CPrivEmailAB.

#ifndef QUILLKIT_LISTS_PRIVATE_LIST_H_
#define QUILLKIT_LISTS_PRIVATE_LIST_H_

#include <cstdint>
#include <string_view>

#include "bridge/long_timeout.h"
#include "lists/email_dl.h"
#include "lists/server_list.h"

namespace quillkit {

template <class BookClass>
class PrivateList : public ServerList<CEmailEntry, BookClass, BookKind::kPrivateList> {
 public:
  static const ClassRecord kClass;

  const ClassRecord* GetRuntimeClass() const override { return &kClass; }

  // Stores the name and the book, which must outlive the list, and reads at most 512 members. The
  // count is that of the size query: members that the read did not deliver are blank. Once the size
  // is known, stores the number of delivered members in `*delivered`, unless that is null. Returns
  // the first status that is not 0. Returns -1 and makes no server call for a null book or an empty
  // name.
  // Server calls: IMSPSizeofAB, then IMSPReadAB unless the size is 0.
  Status Open(BookClass* newBook, std::string_view newName, std::uint32_t* delivered = nullptr);

  // Stores the book, which must outlive the list.
  void SetBook(BookClass* newBook) { book = newBook; }

  // Returns whether Open has started to read members.
  bool IsFilled() const { return filled != 0; }

  // Adds a member on the server. Returns the status. If the list has 512 members or the private
  // book is full, returns 24, records nothing and makes no server call. The status of the reload is
  // ignored.
  // Server calls: IMSPCreateEntry; then those of Reload if `reload` is set.
  Status AddMember(CEmailEntry* entry, std::int32_t reload) override;

  // Reads the list again, as Open, but up to 200,000 members. Returns the first status that is not
  // 0. Server calls: those of Open.
  Status Reload() override;

  // Creates the list and its members on the server with CPrivEmailAB::CreateListWithMembers, and
  // returns its status. A list without members is not created. The addresses of members whose flags
  // are 0 are blanked in memory too. Server calls: IMSPCreateAB, IMSPCreateEntry for each member.
  //
  // Without a book, as after loading from an archive, it creates the session's own list, with or
  // without members, and returns 0 even if the server refuses. The last error is then that of the
  // last call, the creation of the last member. To find earlier refusals, compare the list's size
  // on the server (GetMemberCount, CPrivEmailAB::ListSize) with Count(). After SetBook, refusals
  // are reported.
  Status WriteMembers() override;

  // Delete the list on the server under the long time-out; DestroyList first drops the members in
  // memory. Stop at the first status that is not 0 and return it. Without a book they delete the
  // session's own list. Server calls: IMSPIOCtl 2 and 1, IMSPDeleteAB, IMSPIOCtl 1.
  Status DestroyList() override;
  Status DestroyKeepingMembers();

  // As those of CPubEmailDL, but AddLocal also returns -1, records nothing and makes no server call
  // if the private book is full; AddLocalUnlimited ignores that limit.
  // Server calls: IMSPCreateEntry.
  std::int32_t AddLocal(CEmailEntry* entry);
  std::int32_t AddLocalUnlimited(CEmailEntry* entry);

  // As AddLocalUnlimited, but looks the entry up in the private book before it appends it. Reads
  // the book's entries if none are in memory. Changes the flags of `*entry`: to 1 if the book has
  // an entry of this name and address, to 0 if the book was read and has no entry of this name.
  // Server calls: IMSPCreateEntry; then IMSPReadAB if no entries are in memory.
  std::int32_t AddLocalChecked(CEmailEntry* entry);

  // Replace the member of the entry's name. RenameLocal then sets its name to `key`. Return 1; 0 if
  // the server refuses or the member is not in memory; -1 without a book.
  // Server calls: IMSPModifyEntry.
  std::int32_t ModifyLocal(CEmailEntry* entry);
  std::int32_t RenameLocal(std::string_view key, CEmailEntry* entry);

  // Replaces the members by copies of the other list's members, with their flags cleared, unless
  // that list is empty. The name stays. Returns 1; or 0 and has no members if the allocation fails.
  int AssignFrom(const CEmailDL& other);

 private:
  using Shared = ServerList<CEmailEntry, BookClass, BookKind::kPrivateList>;
  using Shared::book;
  using Shared::members;
  using Shared::name;
  using Shared::search;
  using Shared::SessionAccess;

  bool RefusesLocal() const;
  std::int32_t AppendAfter(Status created, const CEmailEntry& entry);
  void SetOrigin(CEmailEntry* entry);

  std::int32_t filled = 0;
};

template <class BookClass>
Status PrivateList<BookClass>::Open(BookClass* newBook, std::string_view newName,
                                    std::uint32_t* delivered) {
  if (newBook == nullptr) return kRefused;
  Status status = this->InitName(newName);
  if (status != kNoError) return status;
  book = newBook;
  status = this->AllocateMembers(MaxListMembers);
  if (status != kNoError) return status;
  if (!this->IsEmpty()) filled = 1;
  return this->FillMembers(delivered);
}

template <class BookClass>
Status PrivateList<BookClass>::AddMember(CEmailEntry* entry, std::int32_t reload) {
  search.MoveTo(0);
  if (book == nullptr) return kRefused;
  if (this->IsFull()) return kBookFull;
  return this->ReloadAfter(book->AddMember(name, entry), reload);
}

template <class BookClass>
Status PrivateList<BookClass>::Reload() {
  search.MoveTo(0);
  if (book == nullptr) return kRefused;
  const Status status = this->AllocateMembers(MaxServerMembers);
  return status == kNoError ? this->FillMembers() : status;
}

template <class BookClass>
Status PrivateList<BookClass>::WriteMembers() {
  const auto count = static_cast<std::uint32_t>(members.count());
  if (book != nullptr) return book->CreateListWithMembers(name, members.data(), &count);
  BookAccess<CEmailEntry> list = SessionAccess();
  list.CreateBook();
  for (CEmailEntry& each : members) {
    each.BlankPublicAddress();
    list.Create(&each);
  }
  return kNoError;
}

template <class BookClass>
Status PrivateList<BookClass>::DestroyList() {
  members.Free();
  return DestroyKeepingMembers();
}

template <class BookClass>
Status PrivateList<BookClass>::DestroyKeepingMembers() {
  return LongTimeout(&TheAgent, LongTimeout::Unit::kMilliseconds).RunUntilFailure([this] {
    return (book != nullptr ? this->Access() : SessionAccess()).DeleteBook();
  });
}

template <class BookClass>
std::int32_t PrivateList<BookClass>::AddLocal(CEmailEntry* entry) {
  return RefusesLocal() ? -1 : AppendAfter(book->AddMember(name, entry), *entry);
}

template <class BookClass>
std::int32_t PrivateList<BookClass>::AddLocalUnlimited(CEmailEntry* entry) {
  return RefusesLocal() ? -1 : AppendAfter(book->CreateMember(name, entry), *entry);
}

template <class BookClass>
std::int32_t PrivateList<BookClass>::AddLocalChecked(CEmailEntry* entry) {
  if (RefusesLocal()) return -1;
  const Status created = book->CreateMember(name, entry);
  if (created == kNoError) SetOrigin(entry);
  return AppendAfter(created, *entry);
}

template <class BookClass>
bool PrivateList<BookClass>::RefusesLocal() const {
  if (book != nullptr && this->IsFull()) TheAgent.SetError(kBookFull);
  return book == nullptr || this->IsFull();
}

template <class BookClass>
std::int32_t PrivateList<BookClass>::AppendAfter(Status created, const CEmailEntry& entry) {
  if (created != kNoError) return -1;
  search.MoveTo(0);
  return members.Append(entry);
}

// Sets the flags of a member's entry from what the private book holds.
template <class BookClass>
void PrivateList<BookClass>::SetOrigin(CEmailEntry* entry) {
  if (book->EntryCount() == 0) book->LoadEntries(0);
  const CEmailEntry* found = book->EntryAt(book->FindEntry(entry->name.View()));
  if (found == nullptr) {
    if (book->EntriesLoaded()) entry->flags = 0;
  } else if (found->address == entry->address) {
    entry->flags = 1;
  }
}

template <class BookClass>
std::int32_t PrivateList<BookClass>::ModifyLocal(CEmailEntry* entry) {
  if (book == nullptr) return -1;
  return this->Access().Modify(entry) == kNoError && this->Overwrite(*entry) ? 1 : 0;
}

template <class BookClass>
std::int32_t PrivateList<BookClass>::RenameLocal(std::string_view key, CEmailEntry* entry) {
  if (book == nullptr) return -1;
  if (this->Access().Rename(key, entry) != kNoError || !this->Overwrite(*entry)) return 0;
  members.At(this->FindMember(*entry))->SetName(key);
  return 1;
}

template <class BookClass>
int PrivateList<BookClass>::AssignFrom(const CEmailDL& other) {
  if (&other == this || other.IsEmpty()) return 1;
  if (!members.Allocate(other.Count())) return 0;
  for (std::int32_t i = 0; i < other.Count(); ++i) this->SetAt(i, *other.GetAt(i), 0);
  return 1;
}

}  // namespace quillkit

#endif  // QUILLKIT_LISTS_PRIVATE_LIST_H_
