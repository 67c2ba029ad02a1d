// A public list, of e-mail or fax members: owned by its book, which sends what it has to send.

#ifndef QUILLKIT_LISTS_PUBLIC_LIST_H_
#define QUILLKIT_LISTS_PUBLIC_LIST_H_

#include <cstdint>
#include <string_view>

#include "bridge/long_timeout.h"
#include "lists/server_list.h"

namespace quillkit {

// `BookClass` also offers SetServerTimeout(seconds, old).
template <class Base, class BookClass, BookKind kListKind>
class PublicList : public ServerList<Base, BookClass, kListKind> {
  using Shared = ServerList<Base, BookClass, kListKind>;

 public:
  using Member = typename Base::Member;

  bool IsPublic() const override { return true; }

  // Takes the name and the book, which must outlive the list, and reads at most 512 members of the
  // list of that name: IMSPSizeofAB and, unless that tells of none, IMSPReadAB. The first status
  // that is not 0; 21 comes with 512 members. The count is that of the size query: what the read
  // did not deliver is blank. Once the size is known, `*delivered`, unless it is null, becomes the
  // number of members that were delivered. -1 for an empty name, with no call. 0 and no change for
  // a null book.
  Status Open(BookClass* newBook, std::string_view newName, std::uint32_t* delivered = nullptr);

  // IMSPCreateEntry. At 512 members code 24 is recorded and given, with no call.
  Status AddMember(Member* entry, std::int32_t reload) override;

  // Reads the list anew, as Open, and as many members as there are.
  Status Reload() override;

  // IMSPModifyEntry of each member in turn, by its own name. The first status that is not 0 ends
  // it.
  Status WriteMembers() override;

  // Drops the members here and deletes the list on the server under the long time-out. Calls:
  // SetServerTimeout, IMSPDeleteAB, SetServerTimeout. The first status that is not 0 ends it: a
  // list that cannot be deleted leaves the time-out long. Without a book -1, with the members gone.
  Status DestroyList() override;

  // Drops the members here and empties the list on the server under the long time-out, which goes
  // past the book and needs none. Calls: IMSPIOCtl 2 and 1, IMSPClearAB, IMSPIOCtl 1. The first
  // status that is not 0 ends it.
  Status ClearMembers();

  // Overwrite the member of the entry's name, whatever the key: the count; -1 also when the server
  // changed a member that is not held here.
  std::int32_t ModifyLocal(Member* entry) { return Show(Access().Modify(entry), *entry); }
  std::int32_t RenameLocal(std::string_view key, Member* entry) {
    return Show(Access().Rename(key, entry), *entry);
  }

 private:
  using Shared::Access;
  using Shared::book;
  using Shared::members;
  using Shared::name;
  using Shared::searchIndex;

  std::int32_t Show(Status changed, const Member& entry) {
    return changed == kNoError && this->Overwrite(entry) ? members.count() : -1;
  }
};

template <class Base, class BookClass, BookKind kListKind>
Status PublicList<Base, BookClass, kListKind>::Open(BookClass* newBook, std::string_view newName,
                                                    std::uint32_t* delivered) {
  if (newBook == nullptr) return kNoError;
  Status status = this->InitName(newName);
  if (status != kNoError) return status;
  book = newBook;
  status = this->MakeRoom(MaxListMembers);
  return status == kNoError ? this->ReadRoom(delivered) : status;
}

template <class Base, class BookClass, BookKind kListKind>
Status PublicList<Base, BookClass, kListKind>::AddMember(Member* entry, std::int32_t reload) {
  searchIndex = 0;
  if (book == nullptr) return kRefused;
  if (this->IsFull()) {
    TheAgent.SetError(kBookFull);
    return kBookFull;
  }
  return this->Finish(Access().Create(entry), reload);
}

template <class Base, class BookClass, BookKind kListKind>
Status PublicList<Base, BookClass, kListKind>::Reload() {
  searchIndex = 0;
  if (book == nullptr) return kRefused;
  const Status status = this->MakeRoom(MaxServerMembers);
  if (status != kNoError) return status;
  if (members.IsEmpty()) members.Free();
  return this->ReadRoom();
}

template <class Base, class BookClass, BookKind kListKind>
Status PublicList<Base, BookClass, kListKind>::WriteMembers() {
  const auto count = static_cast<std::uint32_t>(members.count());
  return Access().ModifyEach(members.data(), &count);
}

template <class Base, class BookClass, BookKind kListKind>
Status PublicList<Base, BookClass, kListKind>::DestroyList() {
  members.Free();
  if (book == nullptr) return kRefused;
  std::uint32_t old = 0;
  Status status = book->SetServerTimeout(kLongTimeout, &old);
  if (status != kNoError) return status;
  status = Access().DeleteBook();
  if (status != kNoError) return status;
  std::uint32_t raised = 0;
  return book->SetServerTimeout(old, &raised);
}

template <class Base, class BookClass, BookKind kListKind>
Status PublicList<Base, BookClass, kListKind>::ClearMembers() {
  members.Free();
  LongTimeout timeout(&TheAgent);
  Status status = timeout.Raise();
  if (status != kNoError) return status;
  status = BookAccess<Member>(&TheAgent, kListKind, name).ClearBook();
  return status == kNoError ? timeout.Restore() : status;
}

}  // namespace quillkit

#endif  // QUILLKIT_LISTS_PUBLIC_LIST_H_
