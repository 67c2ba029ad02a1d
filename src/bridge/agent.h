// The one object that speaks to the server: it holds the server library, the session, the logged-in
// user, the appliances seen so far and the last status.
//
// Invariants:
//   1. Every call to the server library is one of the forwarding operations below or the wake-up
//      timer's. An entry point is looked up at each call and never kept; one that cannot be found,
//      because the library is not loaded or lacks it, gives status 20 ("IMSP Unitialized").
//   2. lastError is the status of the latest call that records it, or what SetError stored. Nothing
//      clears it.
//   3. scanners holds one CScanner per appliance address, oldest login first; read back from an
//      archive, it holds what stood there.
//
// Use one agent from one thread at a time. The instance that the library works with is TheAgent.

#ifndef QUILLKIT_BRIDGE_AGENT_H_
#define QUILLKIT_BRIDGE_AGENT_H_

#include <cstdint>
#include <cstdlib>
#include <list>
#include <memory>
#include <string>

#include "base/root_object.h"
#include "bridge/records.h"
#include "platform/module.h"
#include "platform/thread_timer.h"

namespace quillkit {

class CScanner;
class CUserRecord;
struct Identity;

// The time-out of a long operation, in seconds.
inline constexpr std::uint32_t kLongTimeout = 3600;
inline constexpr std::uint32_t kMillisecondsPerSecond = 1000;

class CAgent : public RootObject {
 public:
  static const ClassRecord kClass;

  CAgent();
  ~CAgent() override;  // runs Shutdown()

  const ClassRecord* GetRuntimeClass() const override { return &kClass; }

  // Stores the scanners, or replaces them by those of the archive.
  void Serialize(Archive& archive) override;

  // --- Life of the server library ---

  // Loads the server library and calls IMSPInit, whose status is recorded and returned. -1 when the
  // library cannot be loaded; a message box has then said so. REQUIRES: it is not loaded.
  Status LoadServerLibrary();

  // Releases user, server library (IMSPTerminate, recorded), timer and scanners, each where it is
  // held: it can run any number of times. It sends no IMSPLogout and leaves IsConnected() as it
  // was.
  void Shutdown();

  // --- Status ---

  Status LastError() const { return lastError; }
  void SetError(Status status) { lastError = status; }

  // Fills `text` with the text of the last error.
  void ErrorText(std::string& text) const;

  // --- Session ---

  std::int32_t IsConnected() const { return connected; }

  // The logged-in user, or null. Owned by the agent, good until the next login, logout or shutdown.
  CUserRecord* CurrentUser() const { return currentUser.get(); }

  // Logs `user` in at `target`'s address and reads the user's record. Calls: IMSPLogin; IMSPIOCtl 6
  // unless the wake-up timer runs; IMSPReadEntryProperties on USERSAB. The first status that is not
  // 0 ends it and is the result.
  //   `third` takes the third identity word, also when the login is refused.
  //   A refused login changes nothing else but IsConnected(), which is then 0. A later failure
  //   leaves the session open, and the new scanner in the list once the timer runs: the caller logs
  //   out. A scanner of the same address that was in the list is deleted.
  // With `loadPrivateBook` the user's private book is then made and read, whatever comes of that:
  // CUserRecord::LoadPrivateBook.
  Status Login(CUserRecord* user, CScanner* target, std::string& third,
               std::int32_t loadPrivateBook);

  // As Login, but makes no scanner, and a refused login leaves `third` as it was.
  Status Relogin(CUserRecord* user, CScanner* target, std::string& third,
                 std::int32_t loadPrivateBook);

  // Logs in with a ready record and adds a scanner without a name, replacing one of the same
  // address. `identity` takes the server's identity text whatever the result. The current user
  // stays that of an earlier login.
  //   A refused login gives the status of IMSPLogin and leaves IsConnected() as it was.
  //   If the period of the keep-alive cannot be read, its status is the result. The session is then
  //   open, IsConnected() is 1, and no scanner is added: the caller logs out.
  //   A record with address 0 that the server accepts gives 0 and adds an empty scanner, not bound.
  Status LoginByRecord(LoginRecord* login, std::string& identity);

  // Calls IMSPLogout and returns its status, which is not recorded. Deletes the current user, stops
  // the timer, and deletes the scanners when `deleteScanners` is not 0.
  Status Logout(std::int32_t deleteScanners);

  // Finds out the third identity word at `target`'s address through the toolkit's own account, in a
  // session of its own, and logs that session out; the logout's status is recorded and returned.
  // The wake-up timer it may have started runs on.
  Status ProbeIdentity(CScanner* target, std::string& third);

  // Adds `entry` to USERSAB through the guest account, in a session of its own. The status of the
  // create, or of the login when that was refused.
  Status EnrolUser(std::uint32_t address, CUserEntry* entry);

  // Read or write the USERSAB entry of the record's name.
  Status ReadUser(CUserRecord* user);
  Status ModifyUser(CUserRecord* user);

  // --- Appliances ---

  // Appends a scanner, whose ownership passes, and deletes the one of the same address; a scanner
  // that is listed already moves to the end. 1, or 0 for null.
  int AddScanner(CScanner* scanner);

  // The scanner of this address, or null.
  CScanner* FindScanner(const std::uint32_t* address) const;

  // Deletes the scanner of this address: 1, or 0 when there is none.
  int RemoveScanner(const std::uint32_t* address);

  std::int32_t ScannerCount() const { return static_cast<std::int32_t>(scanners.size()); }

  // Null for an index that is negative or not below ScannerCount().
  CScanner* ScannerAt(std::int32_t index) const;

  // A walk over the list; null at its end, and NextScanner() before any FirstScanner().
  CScanner* FirstScanner();
  CScanner* NextScanner();

  // Deletes all scanners and frees the log records; LogCount() stays as it was.
  void DeleteScanners();

  // --- Sign of life ---

  // Unless it runs already (0, no call): asks the server for its period with IMSPIOCtl 6, recorded,
  // and starts the timer at half of it on the calling thread. The status recorded last.
  Status StartWakeup();

  // Stops the timer. A later StartWakeup() takes it to be running all the same; Logout() resets
  // that.
  void StopWakeup();

  // Starts the timer when none is set; whether that gave 0. True also where no timer runs: after
  // Logout(), which keeps the timer's number, and after StopWakeup(), where StartWakeup() gives 0
  // and starts none. False only if the server is asked for its period and refuses.
  bool EnsureWakeup();

  TimerId WakeupTimer() const { return wakeupTimer; }
  std::uint32_t WakeupPeriod() const { return wakeupPeriod; }  // milliseconds, 0: not running
  ModuleHandle ServerLibrary() const { return serverLibrary; }

  // --- Services ---

  // Sets the time-out of server calls in seconds and gives the old one, rounded down to seconds, in
  // `*old`, which stays as it was when the old one cannot be read. Calls: IMSPIOCtl 2, IMSPIOCtl 1.
  Status SetServerTimeout(std::uint32_t seconds, std::uint32_t* old);

  // SetServerTimeout with the time-out that it reads: whole seconds are kept. The same calls.
  Status KeepServerTimeout();

  // Runs a script file under the long time-out (SetServerTimeout, IMSPBatchConfiguration,
  // SetServerTimeout). The first status that is not 0 ends it: after a failed batch the time-out
  // stays long.
  Status RunBatch(const std::string& path);

  // The same around a database command. -1, which is recorded too, for texts that do not fit.
  Status BackupDatabase(const char* first, const char* second);
  Status RestoreDatabase(const char* first, const char* second);

  // Runs the check command under the long time-out, goes on when that cannot be set, and always
  // restores the old time-out: SetServerTimeout, IMSPIOCtl 7, SetServerTimeout. Where the old one
  // could not be read, the restoring call sets the one that it reads. The command's status.
  Status CheckDatabase();

  // Sends kind 0 (back up), 1 (restore) or 2 (check), followed by `first`, a comma and `second`,
  // each of which may be null, with IMSPIOCtl 7. -1 with nothing sent when the first text is over
  // 384 characters, the second does not fit behind it, or there is a second without a first.
  Status DatabaseCommand(std::int32_t kind, const char* first, const char* second);

  // Replaces the log records by those of a user. Calls: IMSPSizeofAB and, when there are any,
  // IMSPReadAB on LOGAB. At most a million records are taken. -1 when memory is refused.
  Status ReadLog(const std::string& user);

  // Clears the log of what `filter` names (a user's name), under the long time-out as RunBatch.
  Status ClearLog(const std::string& filter);
  Status ClearLogExceptSystem();

  std::uint32_t LogCount() const { return logCount; }

  // The record at `index`, or null out of range or without records. Good until the next ReadLog,
  // ClearLog or DeleteScanners.
  const LogRecord* LogRecordAt(std::int32_t index) const;

  // Whether `text` may be given to the server: 0, or -1 for a text of `limit` characters or more,
  // -2 for one that holds "*" or that IMSPCheckString refuses, -3 for one that holds a byte of 128
  // or above behind its first character.
  Status ValidateString(const std::string& text, std::int32_t limit);

  // Copies a text of the server into `text`, a buffer of at least 400 bytes; an empty text when the
  // call (IMSPIOCtl 12) fails.
  Status ServerText(char* text);

  // Acts as another user from here on.
  Status ChangeIdentity(const std::string& user);

  // --- Forwarding operations ---
  //
  // One per entry point, with its arguments (bridge/imsp_api.h). The status is recorded and
  // returned; that of IMSPLogout is only returned. A delivered count above what was asked for is
  // cut to it.

  Status IMSPInit();
  Status IMSPTerminate();
  Status IMSPLogin(LoginRecord* login, char* identity, std::uint32_t capacity);
  Status IMSPLogout();
  Status IMSPWakeup();
  Status IMSPAbort();
  Status IMSPIOCtl(IOCtlRecord* record);
  Status IMSPCheckString(const char* text, std::int32_t maximumLength);
  Status IMSPBatchConfiguration(const std::string& path);
  Status IMSPChangeIdentity(EntryKey* user);
  Status IMSPCreateAB(ABIdent* book);
  Status IMSPDeleteAB(ABIdent* book);
  Status IMSPClearAB(ABIdent* book, const char* filter = nullptr);
  // Count and filter change places on the way to the entry point.
  Status IMSPSizeofAB(ABIdent* book, std::uint32_t* count, const char* filter = nullptr);
  Status IMSPReadAB(ABIdent* book, KeyRange* range, void* records, std::uint32_t* count,
                    std::int32_t direction);
  Status IMSPListABEntries(ABIdent* book, KeyRange* range, EntryKey* rows, std::uint32_t* count,
                           std::int32_t direction);
  Status IMSPListAB(ABIdent* selector, KeyRange* range, ABIdent* books, std::uint32_t* count,
                    std::int32_t direction);
  Status IMSPReadPageBoundaries(ABIdent* book, PageBoundary* table, std::uint32_t* count);
  Status IMSPCreateEntry(ABIdent* book, void* record);
  Status IMSPReadEntryProperties(ABIdent* book, EntryKey* key, void* record);
  Status IMSPModifyEntry(ABIdent* book, EntryKey* key, void* record);
  Status IMSPDeleteEntry(ABIdent* book, EntryKey* key);
  Status IMSPExport(std::uint32_t first, std::uint32_t second);
  Status IMSPGetExportFile(std::uint32_t first, std::uint32_t second, std::uint32_t third);
  Status IMSPImport(std::uint32_t first, std::uint32_t second, std::uint32_t third);
  Status IMSPImpExpState(std::uint32_t first, std::uint32_t second);
  Status IMSPImpExpAbort();

 private:
  struct CFree {
    void operator()(void* block) const { std::free(block); }
  };
  using ScannerList = std::list<CScanner*>;

  template <class Entry, class... Arguments>
  Status Forward(const char* name, Arguments... arguments) const;
  template <class Entry, class... Arguments>
  Status Call(const char* name, Arguments... arguments);
  template <class Entry, class... Arguments>
  Status CallForCount(const char* name, std::uint32_t* count, Arguments... arguments);

  Status StartSession();
  Status AdoptUser(const CUserRecord& user, std::int32_t loadPrivateBook);
  void AddScannerFor(const CScanner* target, std::uint32_t address, const Identity& identity);
  Status ReadServerTimeout(std::uint32_t* seconds);
  Status WriteServerTimeout(std::uint32_t seconds);
  Status RecordedCommand(std::int32_t kind, const char* first, const char* second);
  void FreeLogRecords() { logRecords.reset(); }
  ScannerList::const_iterator Locate(std::uint32_t address) const;
  std::unique_ptr<CScanner> Take(ScannerList::const_iterator position);

  std::unique_ptr<CUserRecord> currentUser;
  Status lastError = kNoError;
  ScannerList scanners;  // owned
  ScannerList::const_iterator scanCursor;
  TimerId wakeupTimer = 0;
  std::uint32_t wakeupPeriod = 0;
  ModuleHandle serverLibrary = nullptr;
  std::int32_t serverReady = 0;
  std::unique_ptr<LogRecord[], CFree> logRecords;
  std::uint32_t logCount = 0;
  std::int32_t connected = 0;
};

}  // namespace quillkit

#endif  // QUILLKIT_BRIDGE_AGENT_H_
