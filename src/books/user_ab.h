// The accounts of one appliance: the whole book USERSAB in memory, and its changes.
//
// Plain operations change the server and, with `reload`, read the whole book again. Local ones
// change the server and then the list in memory. Nothing is rolled back. Without a scanner every
// operation that needs the server returns -1 or false and makes no server call. Operations that
// list no server calls make no server call.
//
// Every account that the book returns goes through one copy step: the caller's record receives the
// fields, this book as its owner and, if the book was attached with private books, a new private
// book. The record must have no private book before: the copy step releases it without deleting it.
// After the book is destroyed, the record's fields stay valid, but operations that use its owner
// must not be called.

#ifndef QUILLKIT_BOOKS_USER_AB_H_
#define QUILLKIT_BOOKS_USER_AB_H_

#include <cstdint>
#include <string>

#include "appliance/scanner.h"
#include "base/root_object.h"
#include "books/user_list.h"
#include "books/user_record.h"

namespace quillkit {

class CUserAB : public RootObject {
 public:
  static const ClassRecord kClass;

  CUserAB() { users.Init(0, this); }  // the list knows its book before any load

  const ClassRecord* GetRuntimeClass() const override { return &kClass; }

  // Each account in turn, without their number. Loading reads as many accounts as the list holds
  // and discards them.
  void Serialize(Archive& archive) override;

  // Stores the scanner, which must outlive the book. `privateBooks` sets whether returned records
  // get a private book; without this argument they do. Returns the result of Load if `loadNow` is
  // set, otherwise 1; 0 for a null scanner. Server calls: those of Load if `loadNow` is set.
  int Attach(CScanner* newScanner, std::int32_t privateBooks, std::int32_t loadNow);
  int Attach(CScanner* newScanner, std::int32_t loadNow) { return Attach(newScanner, 1, loadNow); }

  CScanner* Scanner() const { return scanner; }
  bool HasScanner() const { return scanner != nullptr; }

  // --- The list in memory ---

  std::int32_t Count() const { return users.Count(); }
  bool IsEmpty() const { return users.IsEmpty(); }

  // Reads up to 4096 accounts. Returns 1 if the status is 0 or 4 (no accounts); otherwise 0, with
  // an empty list, also if the server has more. Server calls: IMSPReadAB.
  int Load();

  // Walk through the list. Each fills `record` and returns it, or returns null outside the list. On
  // a list with accounts a step always moves the position: Previous after a step past the end
  // returns the last account.
  CUserRecord* First(CUserRecord* record);
  CUserRecord* Next(CUserRecord* record);
  CUserRecord* Previous(CUserRecord* record);

  // Fills `record` and returns it, or returns null for an index out of range. The walk does not
  // move.
  CUserRecord* GetAt(std::int32_t index, CUserRecord* record);

  // Replace or remove a record in memory only. Return 0 for an index out of range; with `reload`
  // the result of Load; otherwise 1. Server calls: those of Load if `reload` is set.
  int SetAt(std::int32_t index, const CUserEntry& record) { return users.SetAt(index, record); }
  int RemoveAt(std::int32_t index, std::int32_t reload);

  // Search as those of CUserList. A hit fills `record`.
  std::int32_t FindFirst(const std::string& pattern, std::int32_t exact, CUserRecord* record);
  std::int32_t FindNext(std::int32_t exact, CUserRecord* record);
  std::int32_t Find(const CUserEntry& record) { return users.Find(record); }

  // --- Plain family: return whether the server returned 0 ---
  //
  // With `reload`, Load follows a change or read that succeeded; its result is ignored.

  // Adds an account. With 4096 accounts in memory it records code 24, returns false and makes no
  // server call.
  // Server calls: IMSPCreateEntry; then those of Load if `reload` is set.
  bool AddUser(CUserRecord* record, std::int32_t reload);

  // Read or replace the account with the name of the record, or replace the account `oldName`. With
  // `reload`, the record itself goes through the copy step too. For a name that is not terminated
  // in its field, ReadUser returns false and makes no server call.
  // Server calls: IMSPReadEntryProperties, or IMSPModifyEntry (modify and rename); then those of
  // Load if `reload` is set.
  bool ReadUser(CUserRecord* record, std::int32_t reload);
  bool ModifyUser(CUserRecord* record, std::int32_t reload);
  bool RenameUser(const std::string& oldName, CUserRecord* record, std::int32_t reload);

  // Deletes the account. First clears its log, and ignores a failure of that.
  // Server calls: those of CAgent::ClearLog, IMSPDeleteEntry; then those of Load if `reload` is
  // set.
  bool DeleteUser(CUserRecord* record, std::int32_t reload);

  // --- Local family ---

  // Adds an account on the server and a copy of it to the list. Returns the new count, or -1 on
  // failure. Has the limit of AddUser. Server calls: IMSPCreateEntry.
  std::int32_t AddLocal(CUserRecord* record);

  // DeleteLocal returns the new count, or -1 on failure, and keeps the log. The others return
  // whether they succeeded. RenameLocal sends the whole record but changes only the name in memory.
  // All three also fail if the account is not in memory.
  // Server calls: IMSPDeleteEntry or IMSPModifyEntry.
  std::int32_t DeleteLocal(CUserRecord* record);
  bool RenameLocal(const std::string& oldName, CUserRecord* record);
  bool ModifyLocal(CUserRecord* record);

  // --- More ---

  // Stores the number of accounts on the server in `*count`. Returns the status.
  // Server calls: IMSPSizeofAB.
  Status ServerCount(std::uint32_t* count) const { return BoundScanner().SizeofUsers(count); }

  // CUserList::SaveAll of the accounts in memory, loaded or added. Returns its status.
  // Server calls: IMSPModifyEntry for each account.
  Status SaveAll() { return users.SaveAll(); }

  // The account's log: as CAgent::ReadLog and ClearLog, with their server calls.
  Status LoadUserLog(const CUserEntry& record) const {
    return BoundScanner().ReadLog(std::string(record.name.View()));
  }
  Status ClearUserLog(const CUserEntry& record) const {
    return BoundScanner().ClearLog(std::string(record.name.View()));
  }

  // Clears the log as CAgent::ClearLogExceptSystem, and then USERSAB, through the appliance of the
  // latest login, which may differ from this book's appliance. Then loads the list. Returns the
  // status of the clear; -1 and no change if there is no appliance.
  // Server calls: those of CAgent::ClearLogExceptSystem, of CScanner::ClearUsersBook and of Load.
  Status ClearAll();

  // The access to USERSAB.
  BookAccess<CUserEntry> Entries() const { return BoundScanner().UserEntries(); }

 private:
  const CScanner& BoundScanner() const {
    return ScannerOrUnbound(scanner != nullptr && scanner->IsBound() ? scanner : nullptr);
  }
  CUserRecord* FillRecord(const CUserEntry& source, CUserRecord* record);
  CUserRecord* FillRecordAt(std::int32_t index, CUserRecord* record);
  // Before the reload, applies the copy step (FillRecord) to `record`, unless it is null.
  bool ReloadAfter(Status changed, std::int32_t reload, CUserRecord* record = nullptr);
  bool RecordIfFull() const;

  std::int32_t withPrivateBooks = 0;
  CScanner* scanner = nullptr;
  CUserList users;
  std::int32_t walkIndex = 0;
};

}  // namespace quillkit

#endif  // QUILLKIT_BOOKS_USER_AB_H_
