// The accounts of one appliance as a book: the whole of USERSAB in memory, and its changes.
//
// Plain operations change the server and, with `reload`, read the whole book anew. Local ones
// change the server and then patch the list in memory. The server comes first and nothing is
// undone. Without a scanner every operation that needs the server gives -1 or false and makes no
// call.
//
// Every account that leaves the book goes through one copy step: the caller's record takes the
// fields, this book as its owner, and a private book of its own where the book was attached so. The
// record must not hold a private book before: it would be let go of without being deleted. A record
// stays good on its own, but must not be used for the server once the book is gone.

#ifndef QUILLKIT_BOOKS_USER_AB_H_
#define QUILLKIT_BOOKS_USER_AB_H_

#include <cstdint>
#include <string>

#include "appliance/book_access.h"
#include "base/root_object.h"
#include "books/user_list.h"
#include "books/user_record.h"

namespace quillkit {

class CScanner;

class CUserAB : public RootObject {
 public:
  static const ClassRecord kClass;

  CUserAB() { users.Init(0, this); }  // the list knows its book before any load

  const ClassRecord* GetRuntimeClass() const override { return &kClass; }

  // Writes every account in turn, without their number; the archive's direction is not looked at,
  // so that loading takes as many accounts from it as the list holds and drops them.
  void Serialize(Archive& archive) override;

  // Stores the scanner, which must outlive the book, and loads the accounts if asked. What the load
  // gave, or 1; 0 without a scanner. `privateBooks`: whether records that are handed out get a
  // private book. The form without it means yes.
  int Attach(CScanner* newScanner, std::int32_t privateBooks, std::int32_t loadNow);
  int Attach(CScanner* newScanner, std::int32_t loadNow) { return Attach(newScanner, 1, loadNow); }

  CScanner* Scanner() const { return scanner; }
  bool HasScanner() const { return scanner != nullptr; }

  // --- The list in memory ---

  std::int32_t Count() const { return users.Count(); }
  bool IsEmpty() const { return users.IsEmpty(); }

  // Reads the book: one IMSPReadAB of up to 4096 accounts. 1 for the status 0 or 4 (no accounts);
  // else 0 and an empty list, also for a server that holds more.
  int Load();

  // A walk: each fills `record` and gives it, or null when the list is empty or the walk is outside
  // it. A step moves the walk's position even where it finds nothing: Previous behind the end goes
  // back to the last account.
  CUserRecord* First(CUserRecord* record);
  CUserRecord* Next(CUserRecord* record);
  CUserRecord* Previous(CUserRecord* record);

  // Fills `record` from the list, or gives null out of range. The walk stays where it is.
  CUserRecord* GetAt(std::int32_t index, CUserRecord* record);

  // Overwrite, remove in memory alone: 1, or 0 out of range. With `reload` the result of Load.
  int SetAt(std::int32_t index, const CUserEntry& record) { return users.SetAt(index, record); }
  int RemoveAt(std::int32_t index, std::int32_t reload);

  // Searches as CUserList's; a hit fills `record`.
  std::int32_t FindFirst(const std::string& pattern, std::int32_t exact, CUserRecord* record);
  std::int32_t FindNext(std::int32_t exact, CUserRecord* record);
  std::int32_t Find(const CUserEntry& record) { return users.Find(record); }

  // --- Plain family: whether the server gave 0 ---

  // Code 24 is recorded, and no call made, at 4096 accounts in memory. Call: IMSPCreateEntry.
  bool AddUser(CUserRecord* record, std::int32_t reload);

  // With `reload` the record itself goes through the copy step, too. ReadUser makes no call for a
  // name that is not ended within its field. Calls: IMSPReadEntryProperties; IMSPModifyEntry.
  bool ReadUser(CUserRecord* record, std::int32_t reload);
  bool ModifyUser(CUserRecord* record, std::int32_t reload);
  bool RenameUser(const std::string& oldName, CUserRecord* record, std::int32_t reload);

  // Clears the account's log first, whatever comes of that, as CAgent::ClearLog. Call:
  // IMSPDeleteEntry.
  bool DeleteUser(CUserRecord* record, std::int32_t reload);

  // --- Local family ---

  // The new count, or -1; at 4096 as AddUser.
  std::int32_t AddLocal(CUserRecord* record);

  // The new count, or -1; a failure also when the server deleted, renamed or changed an account
  // that was not in memory. The log stays.
  std::int32_t DeleteLocal(CUserRecord* record);
  bool RenameLocal(const std::string& oldName, CUserRecord* record);
  bool ModifyLocal(CUserRecord* record);

  // --- More ---

  // The server's number of accounts: IMSPSizeofAB.
  Status ServerCount(std::uint32_t* count) const;

  // CUserList::SaveAll of the accounts in memory, whether they were loaded or added.
  Status SaveAll() { return users.SaveAll(); }

  // The account's log, as CAgent::ReadLog and ClearLog.
  Status LoadUserLog(const CUserEntry& record) const;
  Status ClearUserLog(const CUserEntry& record) const;

  // Clears the log of all but the system's accounts and then USERSAB, through the appliance that
  // was logged in to last, which need not be this book's; then loads the list anew. The status of
  // the clear; -1 and no change when there is no appliance.
  Status ClearAll();

  // The way to USERSAB.
  BookAccess<CUserEntry> Entries() const;

 private:
  CUserRecord* HandOut(const CUserEntry& source, CUserRecord* record);
  CUserRecord* HandOutAt(std::int32_t index, CUserRecord* record);
  bool Finish(Status status, std::int32_t reload);
  bool FinishWith(CUserRecord* record, Status status, std::int32_t reload);
  bool IsFull() const;

  std::int32_t withPrivateBooks = 0;
  CScanner* scanner = nullptr;
  CUserList users;
  std::int32_t walkIndex = 0;
};

}  // namespace quillkit

#endif  // QUILLKIT_BOOKS_USER_AB_H_
