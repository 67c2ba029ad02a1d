// A private e-mail list, of one user's private book (books/priv_email_ab.h), which decides the
// route to the server.
//
// A member whose flags are 0 refers to the public book, and its address is blanked on the way to
// the server when the list is written. One with flags 1 is an entry of the private book.

#ifndef QUILLKIT_LISTS_PRIV_EMAIL_DL_H_
#define QUILLKIT_LISTS_PRIV_EMAIL_DL_H_

#include <cstdint>
#include <string_view>

#include "bridge/ab_ident.h"
#include "lists/email_dl.h"
#include "lists/server_list.h"

namespace quillkit {

class CPrivEmailAB;

extern template class ServerList<CEmailDL, CPrivEmailAB, BookKind::kPrivateList>;

class CPrivEmailDL : public ServerList<CEmailDL, CPrivEmailAB, BookKind::kPrivateList> {
 public:
  static const ClassRecord kClass;

  const ClassRecord* GetRuntimeClass() const override { return &kClass; }

  // Takes name and book, which must outlive the list, and reads the members, at most 512. Calls:
  // IMSPSizeofAB and, for a list that has any, IMSPReadAB. The first status that is not 0 ends it.
  // The count is that of the size query, and `delivered` as in CPubEmailDL::Open. -1 and no change
  // without a book; -1 for an empty name.
  Status Open(CPrivEmailAB* newBook, std::string_view newName, std::uint32_t* delivered = nullptr);

  // Takes the book alone.
  void SetBook(CPrivEmailAB* newBook) { book = newBook; }

  // Whether Open has come to read members.
  bool IsFilled() const { return filled != 0; }

  // The call of CPrivEmailAB::AddMember. At 512 members 24, with nothing recorded and no call.
  Status AddMember(CEmailEntry* entry, std::int32_t reload) override;

  // Reads the list anew, with as many members as there are.
  Status Reload() override;

  // Creates the list and its members on the server: CPrivEmailAB::CreateListWithMembers, whose
  // status it gives; a list without members is not created. Addresses of members whose flags are 0
  // are blanked here, too.
  //
  // Without a book, as after a load from an archive, the session's own list is created, with or
  // without members, and the result is 0 whatever the server refuses. The last error is then that
  // of the last call, the creation of the last member; earlier refusals show only in the list's
  // size on the server (GetMemberCount, CPrivEmailAB::ListSize), compared with Count(). After
  // SetBook refusals are reported.
  Status WriteMembers() override;

  // Delete the list on the server under the long time-out, with the members here dropped first or
  // kept. Calls: IMSPIOCtl 2 and 1, IMSPDeleteAB, IMSPIOCtl 1; the first status that is not 0 ends
  // it. Without a book the session's own list is deleted.
  Status DestroyList() override;
  Status DestroyKeepingMembers();

  // As CPubEmailDL's, by the call of AddMember; the other goes past the book's limit.
  std::int32_t AddLocal(CEmailEntry* entry);
  std::int32_t AddLocalUnlimited(CEmailEntry* entry);

  // AddLocalUnlimited for an entry whose place is to be looked up, which changes the caller's
  // entry. The private book's entries are read if none are held. The flags become 1 where the book
  // has an entry of that name and address, and 0 where it has been read and has none of that name.
  std::int32_t AddLocalChecked(CEmailEntry* entry);

  // Overwrite the member of the entry's name: 1; 0 when the server refused or there is no such
  // member here; -1 without a book. Renaming leaves the member with the key as its name.
  std::int32_t ModifyLocal(CEmailEntry* entry);
  std::int32_t RenameLocal(std::string_view key, CEmailEntry* entry);

  // Takes copies of the other list's members, with their flags cleared; none replace none. The name
  // stays. 1.
  int AssignFrom(const CEmailDL& other);

 private:
  bool RefusesLocal() const;
  std::int32_t AppendAfter(Status created, const CEmailEntry& entry);
  void SetOrigin(CEmailEntry* entry);

  std::int32_t filled = 0;
};

}  // namespace quillkit

#endif  // QUILLKIT_LISTS_PRIV_EMAIL_DL_H_
