// One account with what it has only in memory: the book it came from and its private book.
//
// A record with an owner reaches the server through that book's appliance. One without is the
// session's own and goes straight to TheAgent. Operations that write give 1 or 0; the status is the
// agent's last error.

#ifndef QUILLKIT_BOOKS_USER_RECORD_H_
#define QUILLKIT_BOOKS_USER_RECORD_H_

#include <cstdint>
#include <memory>
#include <string_view>

#include "bridge/records.h"

namespace quillkit {

class Archive;
class CAgent;
class CPrivEmailAB;
class CUserAB;

class CUserRecord : public CUserEntry {
 public:
  CUserRecord();
  CUserRecord(const CUserRecord&) = delete;
  CUserRecord& operator=(const CUserRecord&) = delete;
  ~CUserRecord();  // deletes the private book and wipes the password

  // Stores `newOwner`, which must outlive the record or be null for the session's own record, and
  // then does CUserEntry::Set, whose result it gives.
  int SetFrom(CUserAB* newOwner, std::string_view newName, std::string_view newPassword,
              std::string_view newThird, std::string_view newFourth, const std::uint32_t* newFlags,
              const std::uint32_t* newNibbles);
  int SetFrom(CUserAB* newOwner, const CUserEntry& source) {
    return SetFrom(newOwner, source.name.View(), source.password.View(), source.third.View(),
                   source.fourth.View(), &source.flags, &source.nibbles);
  }

  CUserAB* Owner() const { return owner; }
  int SetOwner(CUserAB* newOwner);  // 1

  // Whether the latest SerializeWithBook found another user's section.
  bool NameMismatch() const { return nameMismatch != 0; }

  // --- The private book, owned by the record ---
  //
  // Null, or 0, on a record that is not valid. ADMINISTRATOR and TOOLKIT never get one.

  CPrivEmailAB* PrivateBook() const { return IsValid() ? privateBook.get() : nullptr; }

  // Hands the book to the caller.
  CPrivEmailAB* DetachPrivateBook();

  // Deletes the present book and takes over `book` (1), or with null makes a new one.
  int AttachPrivateBook(CPrivEmailAB* book);

  // Takes over `book`; the present one is let go of without being deleted. 1.
  int SetPrivateBookRaw(CPrivEmailAB* book);

  // Deletes the present book and makes an empty one of this user, which reads nothing yet. 1 for
  // every valid record: the two privileged accounts keep what they have.
  int CreatePrivateBook();

  // CreatePrivateBook, and reads the new book's entries and lists from the server
  // (CPrivEmailAB::LoadEntries): 1, also where the account has none, or 0.
  int LoadPrivateBook();

  // Reads from the server what the book has not read yet: its entries, its lists, their members.
  void LoadPrivateLists();

  // Empties the private book on the server and writes the one in memory back. Calls:
  // IMSPReadEntryProperties for the account, then those of CPrivEmailAB::EmptyOnServer and
  // WriteBack. 1, or 0 at the first failure and without a book; an absent book on the server (4) is
  // none. What is in memory is all that is then there: restore no book that was not read whole.
  //
  // The result 1 does not mean that everything was written. Of the entries, only the last one's
  // status counts. Lists that were read from an archive have no book: what the server refuses of
  // them is not reported (CPrivEmailDL::WriteMembers). The last error is that of the last call
  // only. To find out, read the book back and compare it: the entries and lists themselves, or
  // CPrivEmailAB's ServerEntryCount, ServerListCount and ListSize with the counts in memory. To
  // learn which step failed, make the steps one by one (EmptyOnServer, CreateServerEntry of each
  // entry, WriteMembers of each list) and look at the last error after each.
  int RestorePrivateBook();

  // Adds an entry to the user's private book on the server: IMSPCreateEntry.
  Status CreatePrivateEntry(CEmailEntry* entry) const;

  // The book of one user in a backup: the user's name and the book. A record without a book makes
  // one first and loads its entries and lists from the server. Storing loads what is not loaded.
  // Loading stops at another user's name, which NameMismatch() then tells, and leaves the book as
  // it was. A privileged account has the name alone.
  //
  // A read that fails while storing gives a shorter section, or blank members, and is not reported:
  // the last error is that of the last call only. For a backup, read everything first and check
  // each step: CPrivEmailAB::LoadEntries(0) and LoadListsChecked(0) give 1, and each list's Open
  // gives 0 and delivers its count. Storing then calls the server for lists without members only.
  // After loading, check Archive::Failed().
  void SerializeWithBook(Archive& archive);

  // --- Log: CAgent::ReadLog, ClearLog, LogCount and LogRecordAt for this user ---
  //
  // What was read is that of the owner's appliance, or of TheAgent where there is none.

  Status LoadLog() const;
  Status ClearMyLog() const;
  std::uint32_t LogSize() const;
  const LogRecord* LogAt(std::int32_t index) const;

  // --- Flags, written to the server: IMSPModifyEntry ---
  //
  // 1, or 0 when the server refuses; the flag in memory changes in both cases. `reload` has an
  // effect if the server gave 0 and the record has an owner: the owner passes the record through
  // its copy step and reads its accounts anew. The copy step releases the private book of the
  // record without deleting it: call DetachPrivateBook before. The record then has a new empty book
  // if its owner was attached with private books, else none.

  // Sets the once-only mark. 0 and no call when it is set already.
  int MarkOnce(std::int32_t reload);

  bool IsOn() const { return (flags & kOnFlag) != 0; }
  int TurnOn(std::int32_t reload);
  int TurnOff(std::int32_t reload);

 private:
  static constexpr std::uint32_t kOnFlag = 1U << 0;
  static constexpr std::uint32_t kOnceFlag = 1U << 4;

  int Write(std::int32_t reload);
  CAgent& LogAgent() const;

  std::uint8_t nameMismatch = 0;
  CUserAB* owner = nullptr;
  std::unique_ptr<CPrivEmailAB> privateBook;
};

}  // namespace quillkit

#endif  // QUILLKIT_BOOKS_USER_RECORD_H_
