// The only object that calls the server. It holds the server library, the session, the connected
// user, the appliances seen so far and the last status.
//
// Invariants:
//   1. Every call of the server library is a forwarding operation below, or is made by the timer of
//      the keep-alive. An entry point is looked up for each call and never kept. If it cannot be
//      found, because the library is not loaded or lacks it, the status is 20 ("IMSP Unitialized").
//   2. lastError is the status of the latest call that records it, or the argument of SetError.
//      Nothing clears it.
//   3. scanners holds one CScanner per appliance address, oldest login first. After loading from an
//      archive, it holds what was stored.
//
// Use an agent from one thread at a time. The library works with the instance TheAgent.

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

  // Stores the scanners, or replaces them by those in the archive.
  void Serialize(Archive& archive) override;

  // --- Loading of the server library ---

  // Loads the server library and initialises it. Returns and records the status of IMSPInit. If the
  // library cannot be loaded, shows a message box and returns -1. REQUIRES: it is not loaded.
  // Server calls: IMSPInit.
  Status LoadServerLibrary();

  // Releases the user, the server library, the timer and the scanners, as far as they exist; it may
  // be called again. Does not log out, and leaves IsConnected() unchanged.
  // Server calls: IMSPTerminate, which is recorded, if the library is loaded.
  void Shutdown();

  // --- Status ---

  Status LastError() const { return lastError; }
  void SetError(Status status) { lastError = status; }

  // Stores the text of the last error in `text`.
  void ErrorText(std::string& text) const;

  // --- Session ---

  std::int32_t IsConnected() const { return connected; }

  // Returns the connected user, or null. Owned by the agent; valid until the next login, logout or
  // shutdown.
  CUserRecord* CurrentUser() const { return currentUser.get(); }

  // Logs `user` in at the address of `target`, adds a scanner with the name of `target`, and reads
  // the record of the user. Returns the first status that is not 0, after which no call follows.
  //   `third`            Receives the third identity field, also if the login is refused.
  //   `loadPrivateBook`  Nonzero: finally runs CUserRecord::LoadPrivateBook; its result is ignored.
  // A refused login changes nothing else except IsConnected(), which is then 0. After a later
  // failure the session is open, and the new scanner is in the list if the keep-alive started: the
  // caller must log out. An earlier scanner of the same address is deleted.
  // Server calls: IMSPLogin; IMSPIOCtl 6 unless the keep-alive runs; IMSPReadEntryProperties on
  // USERSAB; then those of LoadPrivateBook.
  Status Login(CUserRecord* user, CScanner* target, std::string& third,
               std::int32_t loadPrivateBook);

  // Like Login, but adds no scanner, and a refused login leaves `third` unchanged.
  Status Relogin(CUserRecord* user, CScanner* target, std::string& third,
                 std::int32_t loadPrivateBook);

  // Logs in with a complete record and adds a scanner without a name, which replaces one of the
  // same address. `identity` receives the identity text of the server in every case. The current
  // user is still that of an earlier login.
  //   A refused login returns the status of IMSPLogin and leaves IsConnected() unchanged.
  //   If the period of the keep-alive cannot be read, its status is returned. The session is then
  //   open, IsConnected() is 1, and no scanner is added: the caller must log out.
  //   An accepted record with address 0 returns 0 and adds an empty scanner that is not bound.
  // Server calls: IMSPLogin; IMSPIOCtl 6 unless the keep-alive runs.
  Status LoginByRecord(LoginRecord* login, std::string& identity);

  // Ends the session: deletes the current user, stops the keep-alive, and deletes the scanners if
  // `deleteScanners` is set. Returns the status of IMSPLogout, which is not recorded.
  // Server calls: IMSPLogout.
  Status Logout(std::int32_t deleteScanners);

  // Reads the third identity field at the address of `target` in a session of its own, with the
  // toolkit's account. Returns and records the status of the logout, or returns the first status
  // before it that is not 0. A keep-alive that it started continues.
  // Server calls: IMSPLogin; IMSPIOCtl 6 unless the keep-alive runs; IMSPLogout.
  Status ProbeIdentity(CScanner* target, std::string& third);

  // Adds `entry` to USERSAB in a session of its own, with the guest account. Returns the status of
  // the creation, or of a refused login.
  // Server calls: IMSPLogin, IMSPCreateEntry, IMSPLogout.
  Status EnrolUser(std::uint32_t address, CUserEntry* entry);

  // Read or replace the entry of USERSAB with the name of the record. Return the status.
  // Server calls: IMSPReadEntryProperties or IMSPModifyEntry.
  Status ReadUser(CUserRecord* user);
  Status ModifyUser(CUserRecord* user);

  // --- Appliances ---

  // Appends a scanner, which the agent then owns. Deletes an earlier one of the same address. A
  // scanner that is already in the list moves to the end. Returns 1, or 0 for null.
  int AddScanner(CScanner* scanner);

  // Returns the scanner of this address, or null.
  CScanner* FindScanner(const std::uint32_t* address) const;

  // Deletes the scanner of this address. Returns 1, or 0 if there is none.
  int RemoveScanner(const std::uint32_t* address);

  std::int32_t ScannerCount() const { return static_cast<std::int32_t>(scanners.size()); }

  // Returns null for an index out of range.
  CScanner* ScannerAt(std::int32_t index) const;

  // Iterate over the list. Return null at its end; NextScanner() also before FirstScanner().
  CScanner* FirstScanner();
  CScanner* NextScanner();

  // Deletes all scanners and releases the log records. LogCount() stays unchanged.
  void DeleteScanners();

  // --- Keep-alive ---

  // Asks the server for the period of the keep-alive and starts the timer with half of it on the
  // calling thread. Returns the last recorded status. If the timer runs, returns 0 and makes no
  // server call.
  // Server calls: IMSPIOCtl 6, which is recorded.
  Status StartWakeup();

  // Stops the timer. Until Logout(), StartWakeup() still treats the timer as running.
  void StopWakeup();

  // Calls StartWakeup() if WakeupTimer() is 0. Returns true if WakeupTimer() is not 0, or if
  // StartWakeup() returns 0. True does not always mean that a timer runs:
  //   - Logout() stops the timer but keeps its id.
  //   - After StopWakeup(), StartWakeup() returns 0 without starting a timer.
  // Server calls: those of StartWakeup(), if it is called.
  bool EnsureWakeup();

  TimerId WakeupTimer() const { return wakeupTimer; }
  std::uint32_t WakeupPeriod() const { return wakeupPeriod; }  // milliseconds, 0: not running
  ModuleHandle ServerLibrary() const { return serverLibrary; }

  // --- Services ---

  // Sets the time-out of server calls, in seconds. Stores the old one, rounded down to seconds, in
  // `*old`. If the old one cannot be read, changes neither. Returns the first status that is not 0,
  // otherwise 0. Server calls: IMSPIOCtl 2, IMSPIOCtl 1.
  Status SetServerTimeout(std::uint32_t seconds, std::uint32_t* old);

  // Sets the time-out that it reads, rounded down to seconds. Returns as SetServerTimeout.
  // Server calls: IMSPIOCtl 2, IMSPIOCtl 1.
  Status KeepServerTimeout();

  // Runs a script file under the long time-out. Returns the first status that is not 0, after which
  // no call follows: after a failed batch the long time-out stays.
  // Server calls: those of SetServerTimeout, IMSPBatchConfiguration, those of SetServerTimeout.
  Status RunBatch(const std::string& path);

  // Run a database command under the long time-out, like RunBatch. Return and record -1 if
  // DatabaseCommand rejects the texts.
  // Server calls: as RunBatch, with IMSPIOCtl 7.
  Status BackupDatabase(const char* first, const char* second);
  Status RestoreDatabase(const char* first, const char* second);

  // Runs the check command under the long time-out. Continues even if that cannot be set.
  // Afterwards restores the old time-out; if that could not be read, calls KeepServerTimeout.
  // Returns the status of the command. Server calls: those of SetServerTimeout, IMSPIOCtl 7, those
  // of SetServerTimeout.
  Status CheckDatabase();

  // Sends a database command: 0 backs up, 1 restores, 2 checks. `first`, a comma and `second`
  // follow it; each may be null. Returns -1 and makes no server call if the first text is over 384
  // characters, the second does not fit after it, or there is a second without a first.
  // Server calls: IMSPIOCtl 7.
  Status DatabaseCommand(std::int32_t kind, const char* first, const char* second);

  // Replaces the log records by those of a user, at most a million. Returns the status, or -1 if
  // the allocation fails.
  // Server calls: IMSPSizeofAB and, if there are records, IMSPReadAB on LOGAB.
  Status ReadLog(const std::string& user);

  // Clear a part of the log under the long time-out, like RunBatch. ClearLog clears what `filter`
  // selects, such as the name of a user. ClearLogExceptSystem clears the records of all users
  // except ADMINISTRATOR and GUEST (filter "_!ADMINISTRATOR_!GUEST").
  // Server calls: as RunBatch, with IMSPClearAB on LOGAB.
  Status ClearLog(const std::string& filter);
  Status ClearLogExceptSystem();

  std::uint32_t LogCount() const { return logCount; }

  // Returns the record at `index`, or null for an index out of range or without records. Valid
  // until the next ReadLog, ClearLog or DeleteScanners.
  const LogRecord* LogRecordAt(std::int32_t index) const;

  // Checks a text for the server. Returns 0; -1 for a text of `limit` characters or more; -2 for
  // one with a "*", or one that IMSPCheckString refuses; -3 for one with a byte of 128 or above
  // after its first character. Server calls: IMSPCheckString.
  Status ValidateString(const std::string& text, std::int32_t limit);

  // Copies a text from the server into `text`, a buffer of at least 400 bytes. Stores an empty text
  // if the call fails. Returns the status. Server calls: IMSPIOCtl 12.
  Status ServerText(char* text);

  // Continues the session as another user. Returns the status. Server calls: IMSPChangeIdentity.
  Status ChangeIdentity(const std::string& user);

  // --- Forwarding operations ---
  //
  // One for each entry point, with its arguments (bridge/imsp_api.h). The status is recorded and
  // returned; that of IMSPLogout is only returned. A delivered count above the requested one is
  // reduced to it.

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
  // The entry point has count and filter in the opposite order.
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
  std::unique_ptr<CScanner> Extract(ScannerList::const_iterator position);

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
