// An account record, with the book it came from and its private book.
//
// A record with an owner reaches the server through that book's appliance. One without is the
// session's own and calls TheAgent. Unless stated otherwise, operations that write return 1 or 0;
// the status is the agent's last error. Operations that list no server calls make no server call.

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
class CScanner;
class CUserAB;

class CUserRecord : public CUserEntry {
 public:
  CUserRecord();
  CUserRecord(const CUserRecord&) = delete;
  CUserRecord& operator=(const CUserRecord&) = delete;
  ~CUserRecord();  // deletes the private book and wipes the password

  // Stores `newOwner`, which must outlive the record and is null for the session's own record. Then
  // calls CUserEntry::Set and returns its result.
  int SetFrom(CUserAB* newOwner, std::string_view newName, std::string_view newPassword,
              std::string_view newThird, std::string_view newFourth, const std::uint32_t* newFlags,
              const std::uint32_t* newNibbles);
  int SetFrom(CUserAB* newOwner, const CUserEntry& source) {
    return SetFrom(newOwner, source.name.View(), source.password.View(), source.third.View(),
                   source.fourth.View(), &source.flags, &source.nibbles);
  }

  CUserAB* Owner() const { return owner; }
  int SetOwner(CUserAB* newOwner);  // returns 1

  // Returns the scanner whose access methods reach the account's private book: the owner's scanner;
  // if the owner has none, one that refuses everything; without an owner, the route of the session.
  const CScanner& Route() const;

  // Returns whether the latest SerializeWithBook found another user's section.
  bool NameMismatch() const { return nameMismatch != 0; }

  // --- The private book, owned by the record ---
  //
  // On a record that is not valid they return null or 0, except SetPrivateBookRaw. ADMINISTRATOR
  // and TOOLKIT get no private book.

  CPrivEmailAB* PrivateBook() const { return IsValid() ? privateBook.get() : nullptr; }

  // Releases the book to the caller.
  CPrivEmailAB* DetachPrivateBook();

  // Stores `book`, which the record then owns. Deletes the present book unless it is the same.
  // Returns 1. For null, deletes the present book and returns the result of CreatePrivateBook.
  int AttachPrivateBook(CPrivEmailAB* book);

  // Stores `book`, which the record then owns. Releases the present one without deleting it.
  // Returns 1.
  int SetPrivateBookRaw(CPrivEmailAB* book);

  // Deletes the present book and makes an empty one, which reads nothing yet; the two privileged
  // accounts keep what they have. Returns 1 for every valid record.
  int CreatePrivateBook();

  // Calls CreatePrivateBook and reads the entries and lists of the new book with
  // CPrivEmailAB::LoadEntries. Returns 1, also if the account gets no book; or 0.
  // Server calls: those of CPrivEmailAB::LoadEntries(1).
  int LoadPrivateBook();

  // Reads what the book has not read yet: its entries, its lists, their members.
  // Server calls: those of CPrivEmailAB::LoadEntries(0), then those of LoadLists(1) or, if the
  // lists are loaded, of LoadAllMembers.
  void LoadPrivateLists();

  // Empties the private book on the server and writes the one in memory back: restore only a book
  // that was read completely. Returns 1; or 0 at the first failure, or without a book. If the book
  // does not exist on the server, EmptyOnServer returns 4 or 3: 4 is no failure, 3 is one.
  // Server calls: IMSPReadEntryProperties for the account, then those of
  // CPrivEmailAB::EmptyOnServer and WriteBack.
  //
  // The result 1 does not mean that everything was written. Of the entries, only the last one's
  // status counts. Lists that were read from an archive have no book: what the server refuses of
  // them is not reported (CPrivEmailDL::WriteMembers). The last error is that of the last call
  // only. To check, read the book again and compare it: the entries and lists themselves, or
  // CPrivEmailAB's ServerEntryCount, ServerListCount and ListSize with the counts in memory. To
  // find the step that failed, make the steps one by one (EmptyOnServer, CreateServerEntry of each
  // entry, WriteMembers of each list) and check the last error after each.
  int RestorePrivateBook();

  // Adds an entry to the user's private book on the server. Returns the status.
  // Server calls: IMSPCreateEntry.
  Status CreatePrivateEntry(CEmailEntry* entry) const;

  // The section of one user in a backup: the name and the private book. A record without a book
  // first makes one and reads its entries and lists. Storing reads what was not read yet. Loading
  // stops at another user's name, sets NameMismatch(), and leaves the book unchanged. A privileged
  // account stores the name only.
  //
  // A read that fails while storing gives a shorter section, or blank members, and is not reported:
  // the last error is that of the last call only. For a backup, read everything first and check
  // each step: CPrivEmailAB::LoadEntries(0) and LoadListsChecked(0) return 1, and each list's Open
  // returns 0 and delivers its count. Storing then calls the server for lists without members only.
  // After loading, check Archive::Failed().
  // Server calls: those of LoadPrivateBook without a book; then, to store, those of
  // LoadPrivateLists and of CPrivEmailAB::LoadAllMembers.
  void SerializeWithBook(Archive& archive);

  // --- Log ---
  //
  // As CAgent's ReadLog, ClearLog, LogCount and LogRecordAt for this user, with their server calls.
  // Use the agent of the owner's appliance, or TheAgent without an owner. If the owner has no bound
  // scanner, LoadLog and ClearMyLog return -1 and make no server call, and the other two use
  // TheAgent.

  Status LoadLog() const;
  Status ClearMyLog() const;
  std::uint32_t LogSize() const;
  const LogRecord* LogAt(std::int32_t index) const;

  // --- Flags, written to the server ---
  //
  // Return 1, or 0 if the server refuses; the flag in memory changes in both cases. `reload` has an
  // effect if the server returned 0 and the record has an owner: the owner passes the record
  // through its copy step and reads its accounts again. The copy step releases the private book of
  // the record without deleting it: call DetachPrivateBook before. The record then has a new empty
  // book if its owner was attached with private books, otherwise none.
  // Server calls: IMSPModifyEntry; then those of CUserAB::Load if `reload` has an effect.

  // Sets the once-only mark. Returns 0 and makes no server call if it is set already.
  int MarkOnce(std::int32_t reload);

  // The on-off state.
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
