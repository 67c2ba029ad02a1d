// One appliance on the client: its identity, the books opened on it, and access to every book on
// the server. The main handle of an application.
//
// A scanner is bound if it has an address and an agent. The books, the sizes, the clears and the
// services documented with "on an unbound scanner" need a bound scanner. All other operations need
// only the agent. Unless stated otherwise, an operation without what it needs returns -1 and makes
// no server call. Operations that list no server calls make no server call.

#ifndef QUILLKIT_APPLIANCE_SCANNER_H_
#define QUILLKIT_APPLIANCE_SCANNER_H_

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "appliance/book_access.h"
#include "base/root_object.h"
#include "bridge/records.h"

namespace quillkit {

class CEmailAB;
class CFaxAB;
class CPrinterAB;
class CTopLevelAB;
class CUserAB;

class CScanner : public RootObject {
 public:
  static const ClassRecord kClass;

  CScanner();
  ~CScanner() override;  // deletes the books, in the order of the fields

  const ClassRecord* GetRuntimeClass() const override { return &kClass; }

  // name, address, model, version. A loaded scanner is bound after SetAgent. Books are not stored.
  void Serialize(Archive& archive) override;

  // --- Identity ---

  // Sets the five fields. Returns 1, or 0 and no change for a null agent, or an address that is
  // null or 0.
  int Init(const std::string& newName, const std::uint32_t* newAddress, const std::string& newModel,
           const std::string& newVersion, CAgent* newAgent);

  bool IsBound() const { return address != 0 && agent != nullptr; }

  const std::string& Name() const { return name; }
  const std::string& Model() const { return model; }
  const std::string& Version() const { return version; }
  std::uint32_t Address() const { return address; }  // in the byte order of inet_addr

  // Store the value in the argument; no change on an unbound scanner.
  void GetName(std::string& text) const;
  void GetModel(std::string& text) const;
  void GetVersion(std::string& text) const;
  void GetAddress(std::uint32_t* value) const;

  // Returns null on an unbound scanner.
  CAgent* Agent() const { return IsBound() ? agent : nullptr; }

  // Returns the agent even without an address; null before SetAgent.
  CAgent* RawAgent() const { return agent; }

  void SetName(const std::string& text) { name = text; }
  void SetModel(const std::string& text) { model = text; }
  void SetVersion(const std::string& text) { version = text; }
  void SetAddress(const std::uint32_t* value) { address = *value; }
  void SetAgent(CAgent* newAgent) { agent = newAgent; }

  // --- Books, owned by the scanner ---

  // Return the open book, valid until it is replaced or the scanner is destroyed; null on an
  // unbound scanner, or if no book is open.
  CEmailAB* EmailBook() const { return IsBound() ? emailBook.get() : nullptr; }
  CUserAB* UsersBook() const { return IsBound() ? usersBook.get() : nullptr; }
  CFaxAB* FaxBook() const { return IsBound() ? faxBook.get() : nullptr; }
  CPrinterAB* PrintersBook() const { return IsBound() ? printersBook.get() : nullptr; }
  CTopLevelAB* TopBook() const { return IsBound() ? topBook.get() : nullptr; }

  // The same, and pass the ownership to the caller. No book is open afterwards.
  CEmailAB* DetachEmailBook();
  CUserAB* DetachUsersBook();
  CFaxAB* DetachFaxBook();
  CPrinterAB* DetachPrintersBook();
  CTopLevelAB* DetachTopBook();

  // Replace the open book by `book` and take ownership; the old book is deleted unless it is the
  // same. Null: open a new book on this scanner and load it; the e-mail book gets a sliding view
  // that reads nothing yet. Return 1; with null, SetUsersBook, SetFaxBook and SetTopBook return the
  // result of Attach. Return 0, and change nothing, on an unbound scanner.
  // Server calls: with null, those of CUserAB::Load, CFaxAB::LoadEntries, CPrinterAB::LoadBook or
  // CTopLevelAB::Load with items; SetEmailBook makes no server call.
  int SetEmailBook(CEmailAB* book);
  int SetUsersBook(CUserAB* book);
  int SetFaxBook(CFaxAB* book);
  int SetPrintersBook(CPrinterAB* book);
  int SetTopBook(CTopLevelAB* book);

  // Clear the book on the server under the long time-out (LongTimeout::RunAlways). Return the
  // status of the clear, or 0 on an unbound scanner.
  // Server calls: those of CAgent::SetServerTimeout, IMSPClearAB, those of SetServerTimeout.
  Status ClearEmailBook() { return Clear(BookKind::kEmail, kEmailBook); }
  Status ClearFaxBook() { return Clear(BookKind::kFax, kFaxBook); }
  Status ClearUsersBook() { return Clear(BookKind::kUsers, kUsersBook); }
  Status ClearTopBook() { return Clear(BookKind::kTop, kTopBook); }
  Status ClearPrintersBook() { return Clear(BookKind::kPrinters, kPrintersBook); }

  // --- Sizes on the server; -1 on an unbound scanner ---

  // Store the number of entries in `*count`. Return the status. Server calls: IMSPSizeofAB.
  Status SizeofEmail(std::uint32_t* count) const {
    return Size(BookKind::kEmail, kEmailBook, count);
  }
  Status SizeofFax(std::uint32_t* count) const { return Size(BookKind::kFax, kFaxBook, count); }
  Status SizeofUsers(std::uint32_t* count) const {
    return Size(BookKind::kUsers, kUsersBook, count);
  }
  Status SizeofPrinters(std::uint32_t* count) const {
    return Size(BookKind::kPrinters, kPrintersBook, count);
  }
  Status SizeofTop(std::uint32_t* count) const { return Size(BookKind::kTop, kTopBook, count); }
  Status SizeofKey(const std::string& key, std::uint32_t* count) const {
    return Size(BookKind::kKeyItems, key, count);
  }
  Status SizeofPublicList(const std::string& list, std::uint32_t* count) const {
    return Size(BookKind::kPublicList, list, count);
  }
  Status SizeofPrivateList(const std::string& list, std::uint32_t* count) const {
    return Size(BookKind::kPrivateList, list, count);
  }
  Status SizeofFaxList(const std::string& list, std::uint32_t* count) const {
    return Size(BookKind::kFaxList, list, count);
  }

  // Store the number of lists in `*count`. Return the status. Server calls: IMSPListAB.
  Status CountPublicLists(std::uint32_t* count) const {
    return CountLists(BookKind::kPublicList, count);
  }
  Status CountFaxLists(std::uint32_t* count) const { return CountLists(BookKind::kFaxList, count); }

  // --- Services of the agent, with its arguments, results and server calls ---

  // Return -1 and make no server call on an unbound scanner.
  Status BackupDatabase(const char* first, const char* second) const {
    return CallAgent(Agent(), &CAgent::BackupDatabase, first, second);
  }
  Status RestoreDatabase(const char* first, const char* second) const {
    return CallAgent(Agent(), &CAgent::RestoreDatabase, first, second);
  }
  Status RunBatch(const std::string& path) const {
    return CallAgent(Agent(), &CAgent::RunBatch, path);
  }
  Status ProbeIdentity(std::string& third) {
    return CallAgent(Agent(), &CAgent::ProbeIdentity, this, third);
  }

  // Without an agent, these return -1, a count of 0, or null, and make no server call.
  Status EnrolUser(CUserEntry* entry) const {
    return CallAgent(agent, &CAgent::EnrolUser, address, entry);
  }
  Status ReadLog(const std::string& user) const { return CallAgent(agent, &CAgent::ReadLog, user); }
  Status ClearLog(const std::string& filter) const {
    return CallAgent(agent, &CAgent::ClearLog, filter);
  }
  Status ClearLogExceptSystem() const { return CallAgent(agent, &CAgent::ClearLogExceptSystem); }
  std::uint32_t LogCount() const { return agent != nullptr ? agent->LogCount() : 0; }
  const LogRecord* LogRecordAt(std::int32_t index) const {
    return agent != nullptr ? agent->LogRecordAt(index) : nullptr;
  }
  Status SetServerTimeout(std::uint32_t seconds, std::uint32_t* old) const {
    return CallAgent(agent, &CAgent::SetServerTimeout, seconds, old);
  }

  // Stores the tag of the administrator's entry in `*tag` on success. Returns the status.
  // Server calls: IMSPReadEntryProperties.
  Status ReadAdminTag(std::uint32_t* tag) const;

  // Sets that tag to `*tag`. Returns the first status that is not 0, after which no call follows,
  // otherwise 0. Returns -1 and makes no server call unless the administrator is connected.
  // Server calls: IMSPReadEntryProperties, IMSPModifyEntry.
  Status WriteAdminTag(const std::uint32_t* tag) const;

  // Rename a distribution list. Both use the book name "PRIVATEAB"; the server looks only at the
  // kind. Return the status. A name of 32 or more characters is sent as the empty name.
  // Server calls: IMSPModifyEntry.
  Status RenamePublicList(const std::string& oldName, const std::string& newName) const {
    return RenameList(BookKind::kPublicList, oldName, newName);
  }
  Status RenamePrivateList(const std::string& oldName, const std::string& newName) const {
    return RenameList(BookKind::kPrivateList, oldName, newName);
  }

  // --- Access to the entries of each book (appliance/book_access.h) ---

  BookAccess<CEmailEntry> EmailEntries() const { return {agent, BookKind::kEmail, kEmailBook}; }
  BookAccess<CEmailEntry> PrivateEntries() const {
    return {agent, BookKind::kPrivateEmail, kPrivateBook};
  }
  BookAccess<CFaxEntry> FaxEntries() const { return {agent, BookKind::kFax, kFaxBook}; }
  BookAccess<CUserEntry> UserEntries() const { return {agent, BookKind::kUsers, kUsersBook}; }
  BookAccess<PrinterRecord> PrinterEntries() const {
    return {agent, BookKind::kPrinters, kPrintersBook};
  }
  BookAccess<PrinterModelRecord> ModelEntries() const {
    return {agent, BookKind::kModels, kModelsBook};
  }
  BookAccess<CEmailEntry> PublicList(std::string_view list) const {
    return {agent, BookKind::kPublicList, list};
  }
  BookAccess<CEmailEntry> PrivateList(std::string_view list) const {
    return {agent, BookKind::kPrivateList, list};
  }
  BookAccess<CFaxEntry> FaxList(std::string_view list) const {
    return {agent, BookKind::kFaxList, list};
  }

  // List the names of all lists of a kind into `books`, an array of `*count` elements, and store
  // the number delivered in `*count`. Return the status. Return -1 and make no server call for a
  // count of 0.
  // Server calls: IMSPListAB with an empty name and the filter "*".
  Status ListPublicLists(ABIdent* books, std::uint32_t* count) const {
    return ListLists(BookKind::kPublicList, books, count);
  }
  Status ListPrivateLists(ABIdent* books, std::uint32_t* count) const {
    return ListLists(BookKind::kPrivateList, books, count);
  }
  Status ListFaxLists(ABIdent* books, std::uint32_t* count) const {
    return ListLists(BookKind::kFaxList, books, count);
  }

  // Creates a private list and adds `*count` members. An existing list gets the members too: the
  // status of IMSPCreateAB is ignored. A member whose flags are 0 refers to the public book: its
  // address is blanked first, in the caller's array. Stops at the first member that fails and
  // returns its status; the members sent before remain. Otherwise returns 0.
  // Server calls: IMSPCreateAB, then IMSPCreateEntry for each member.
  Status CreatePrivateMembers(std::string_view list, CEmailEntry* members,
                              const std::uint32_t* count) const;

  // Reads the letter census of the public e-mail book into `table`, an array of `*count` rows, and
  // stores the number delivered in `*count`. Returns the status. Returns -1 and makes no server
  // call for a null table or a count of 0. Server calls: IMSPReadPageBoundaries.
  Status ReadPageBoundaries(PageBoundary* table, std::uint32_t* count) const;

  // Sends `request`. Returns the status. Server calls: IMSPIOCtl with this record.
  Status ServerCall(IOCtlRecord* request) const {
    return CallAgent(agent, &CAgent::IMSPIOCtl, request);
  }

  // The soft keys: entries of the top-level book. Each makes one call and returns its status.
  // ListKeys fills `rows`, an array of `*count` elements, and stores the number delivered in
  // `*count`; it is the only request on this book that sends an empty book name. ModifyKeyEntry
  // replaces the entry `key`.
  // Server calls: IMSPListABEntries, IMSPCreateEntry or IMSPModifyEntry.
  Status ListKeys(EntryKey* rows, std::uint32_t* count) const {
    return BookAccess<CMenuItem>(agent, BookKind::kTop, {}).ListNames(rows, count);
  }
  Status CreateKeyEntry(CMenuItem* record) const { return TopEntries().Create(record); }
  Status ModifyKeyEntry(std::string_view key, CMenuItem* record) const {
    return TopEntries().Rename(key, record);
  }

  // The items of a soft key: entries of the book with the key's name. Each makes one call and
  // returns its status: as Read, ReadUnterminated, Create, Modify, Rename, Delete and DeleteBook of
  // BookAccess. DeleteKeyBook deletes the key.
  // Server calls: IMSPReadAB (both reads), IMSPCreateEntry, IMSPModifyEntry (modify and rename),
  // IMSPDeleteEntry or IMSPDeleteAB.
  Status ReadKeyItems(std::string_view key, KeyRange* range, CMenuItem* items, std::uint32_t* count,
                      std::int32_t direction) const {
    return KeyItems(key).Read(range, items, count, direction);
  }
  Status ReadUnterminatedItems(std::string_view key, KeyRange* range, CMenuItem* items,
                               std::uint32_t* count, std::int32_t direction) const {
    return KeyItems(key).ReadUnterminated(range, items, count, direction);
  }
  Status CreateKeyItem(std::string_view key, CMenuItem* item) const {
    return KeyItems(key).Create(item);
  }
  Status ModifyKeyItem(std::string_view key, CMenuItem* item) const {
    return KeyItems(key).Modify(item);
  }
  Status RenameKeyItem(std::string_view key, std::string_view oldName, CMenuItem* item) const {
    return KeyItems(key).Rename(oldName, item);
  }
  Status DeleteKeyItem(std::string_view key, const CMenuItem& item) const {
    return KeyItems(key).Delete(item);
  }
  Status DeleteKeyBook(std::string_view key) const { return KeyItems(key).DeleteBook(); }

 private:
  template <class Book>
  int Replace(std::unique_ptr<Book>& slot, Book* book, std::int32_t mode);
  Status Clear(BookKind kind, std::string_view book);
  Status Size(BookKind kind, std::string_view book, std::uint32_t* count) const {
    return BookAccess<EntryKey>(Agent(), kind, book).Size(count);
  }
  Status CountLists(BookKind kind, std::uint32_t* count) const;
  Status ListLists(BookKind kind, ABIdent* books, std::uint32_t* count) const;
  Status RenameList(BookKind kind, const std::string& oldName, const std::string& newName) const;
  BookAccess<CMenuItem> TopEntries() const { return {agent, BookKind::kTop, kTopBook}; }
  BookAccess<CMenuItem> KeyItems(std::string_view key) const {
    return {agent, BookKind::kKeyItems, key};
  }

  std::string name;
  std::uint32_t address = 0;
  std::string model;
  std::string version;
  std::unique_ptr<CEmailAB> emailBook;
  std::unique_ptr<CUserAB> usersBook;
  std::unique_ptr<CFaxAB> faxBook;
  std::unique_ptr<CPrinterAB> printersBook;
  std::unique_ptr<CTopLevelAB> topBook;
  CAgent* agent = nullptr;  // not owned
};

// Whether both are the same appliance: their addresses are equal.
inline bool operator==(const CScanner& a, const CScanner& b) {
  return a.Address() == b.Address();
}

// Returns `*scanner`; for null, a scanner without an agent, valid as long as the library is loaded.
// Its operations return -1 and make no server call; the five Clear...Book operations return 0.
const CScanner& ScannerOrUnbound(const CScanner* scanner);

}  // namespace quillkit

#endif  // QUILLKIT_APPLIANCE_SCANNER_H_
