// The client-side image of one appliance, and an application's main handle: what it is, the books
// that have been opened on it, and the way to every book on the server.
//
// A scanner is bound when it has an address and an agent. The books, the sizes, the clears and the
// services that say so need a bound one; all others need the agent alone. What is needed and not
// there gives -1, unless an operation says otherwise, and no call is made.

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

class CAgent;
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

  // name, address, model, version. A scanner that was read back is bound once SetAgent has run; the
  // books take no part.
  void Serialize(Archive& archive) override;

  // --- Identity ---

  // Sets the five fields and gives 1; 0 and no change for a null agent or an address that is null
  // or 0.
  int Init(const std::string& newName, const std::uint32_t* newAddress, const std::string& newModel,
           const std::string& newVersion, CAgent* newAgent);

  bool IsBound() const { return address != 0 && agent != nullptr; }

  const std::string& Name() const { return name; }
  const std::string& Model() const { return model; }
  const std::string& Version() const { return version; }
  std::uint32_t Address() const { return address; }  // in the byte order of inet_addr

  // Fill the argument, on a bound scanner only.
  void GetName(std::string& text) const;
  void GetModel(std::string& text) const;
  void GetVersion(std::string& text) const;
  void GetAddress(std::uint32_t* value) const;

  // The agent of a bound scanner, else null.
  CAgent* Agent() const { return IsBound() ? agent : nullptr; }

  // The agent, of a scanner without an address too; null before SetAgent.
  CAgent* RawAgent() const { return agent; }

  void SetName(const std::string& text) { name = text; }
  void SetModel(const std::string& text) { model = text; }
  void SetVersion(const std::string& text) { version = text; }
  void SetAddress(const std::uint32_t* value) { address = *value; }
  void SetAgent(CAgent* newAgent) { agent = newAgent; }

  // --- Books, owned by the scanner ---

  // Null on an unbound scanner, and where no book has been opened.
  CEmailAB* EmailBook() const { return IsBound() ? emailBook.get() : nullptr; }
  CUserAB* UsersBook() const { return IsBound() ? usersBook.get() : nullptr; }
  CFaxAB* FaxBook() const { return IsBound() ? faxBook.get() : nullptr; }
  CPrinterAB* PrintersBook() const { return IsBound() ? printersBook.get() : nullptr; }
  CTopLevelAB* TopBook() const { return IsBound() ? topBook.get() : nullptr; }

  // As above, and hands the book to the caller.
  CEmailAB* DetachEmailBook();
  CUserAB* DetachUsersBook();
  CFaxAB* DetachFaxBook();
  CPrinterAB* DetachPrintersBook();
  CTopLevelAB* DetachTopBook();

  // Delete the present book and take over `book` (1; its own book stays), or with null open a new
  // one on this scanner and load it, the e-mail book with a sliding view that reads nothing yet.
  // For the users, the fax and the top-level book the result is then what its Attach gave, for the
  // others 1. 0 and no change on an unbound scanner.
  int SetEmailBook(CEmailAB* book);
  int SetUsersBook(CUserAB* book);
  int SetFaxBook(CFaxAB* book);
  int SetPrintersBook(CPrinterAB* book);
  int SetTopBook(CTopLevelAB* book);

  // Empty the book on the server under the long time-out. The old time-out is put back whatever
  // happens; where it could not be read, the restoring call sets the one that it reads. Calls:
  // SetServerTimeout, IMSPClearAB, SetServerTimeout; the clear's status. An unbound scanner
  // gives 0.
  Status ClearEmailBook();
  Status ClearFaxBook();
  Status ClearUsersBook();
  Status ClearTopBook();
  Status ClearPrintersBook();

  // --- Sizes on the server: IMSPSizeofAB, or IMSPListAB for the counts of lists ---

  Status SizeofEmail(std::uint32_t* count) const;
  Status SizeofFax(std::uint32_t* count) const;
  Status SizeofUsers(std::uint32_t* count) const;
  Status SizeofPrinters(std::uint32_t* count) const;
  Status SizeofTop(std::uint32_t* count) const;
  Status SizeofKey(const std::string& key, std::uint32_t* count) const;
  Status SizeofPublicList(const std::string& list, std::uint32_t* count) const;
  Status SizeofPrivateList(const std::string& list, std::uint32_t* count) const;
  Status SizeofFaxList(const std::string& list, std::uint32_t* count) const;
  Status CountPublicLists(std::uint32_t* count) const;
  Status CountFaxLists(std::uint32_t* count) const;

  // --- Services of the agent, with its results ---

  // -1 on an unbound scanner.

  Status BackupDatabase(const char* first, const char* second) const;
  Status RestoreDatabase(const char* first, const char* second) const;
  Status RunBatch(const std::string& path) const;
  Status ProbeIdentity(std::string& third);

  // -1, 0 records or null without an agent.
  Status EnrolUser(CUserEntry* entry) const;
  Status ReadLog(const std::string& user) const;
  Status ClearLog(const std::string& filter) const;
  Status ClearLogExceptSystem() const;
  std::uint32_t LogCount() const;
  const LogRecord* LogRecordAt(std::int32_t index) const;
  Status SetServerTimeout(std::uint32_t seconds, std::uint32_t* old) const;

  // The tag of the administrator's entry. Reading: IMSPReadEntryProperties; `*tag` is written on 0.
  // Writing: the same and IMSPModifyEntry; -1 and no call unless the administrator is connected.
  Status ReadAdminTag(std::uint32_t* tag) const;
  Status WriteAdminTag(const std::uint32_t* tag) const;

  // Rename a distribution list: IMSPModifyEntry on the book "PRIVATEAB", in which the kind alone
  // tells the server what is meant. -1 without an agent.
  Status RenamePublicList(const std::string& oldName, const std::string& newName) const;
  Status RenamePrivateList(const std::string& oldName, const std::string& newName) const;

  // --- Per-book access: what may be done with a book is told in appliance/book_access.h ---

  BookAccess<CEmailEntry> EmailEntries() const;
  BookAccess<CEmailEntry> PrivateEntries() const;
  BookAccess<CFaxEntry> FaxEntries() const;
  BookAccess<CUserEntry> UserEntries() const;
  BookAccess<PrinterRecord> PrinterEntries() const;
  BookAccess<PrinterModelRecord> ModelEntries() const;
  BookAccess<CEmailEntry> PublicList(std::string_view list) const;
  BookAccess<CEmailEntry> PrivateList(std::string_view list) const;
  BookAccess<CFaxEntry> FaxList(std::string_view list) const;

  // The names of the lists of a kind: IMSPListAB with an empty name and the filter "*" into
  // `books`, an array of `*count` that becomes the number delivered. -1 also for a count of 0.
  Status ListPublicLists(ABIdent* books, std::uint32_t* count) const;
  Status ListPrivateLists(ABIdent* books, std::uint32_t* count) const;
  Status ListFaxLists(ABIdent* books, std::uint32_t* count) const;

  // Creates a private list and its members: IMSPCreateAB, whose status is ignored so that an
  // existing list takes the members too, then IMSPCreateEntry for each. A member whose flags are 0
  // refers to the public book: its address is blanked first, in the caller's array. The first
  // failing member ends the run and gives its status; what was sent stays.
  Status CreatePrivateMembers(std::string_view list, CEmailEntry* members,
                              const std::uint32_t* count) const;

  // The letter census of the public e-mail book: IMSPReadPageBoundaries into a table of `*count`
  // rows. -1 also for a null table or a count of 0.
  Status ReadPageBoundaries(PageBoundary* table, std::uint32_t* count) const;

  // IMSPIOCtl with the given record.
  Status ServerCall(IOCtlRecord* request) const;

  // Soft keys. ListKeys fills `rows` with at most `*count` names; alone of all requests on the
  // top-level book it sends an empty book name.
  Status ListKeys(EntryKey* rows, std::uint32_t* count) const;
  Status CreateKeyEntry(CMenuItem* record) const;
  Status ModifyKeyEntry(std::string_view key, CMenuItem* record) const;

  // The items of one key: its book has the key's name.
  Status ReadKeyItems(std::string_view key, KeyRange* range, CMenuItem* items, std::uint32_t* count,
                      std::int32_t direction) const;
  Status CreateKeyItem(std::string_view key, CMenuItem* item) const;
  Status ModifyKeyItem(std::string_view key, CMenuItem* item) const;
  Status RenameKeyItem(std::string_view key, std::string_view oldName, CMenuItem* item) const;
  Status DeleteKeyItem(std::string_view key, const CMenuItem& item) const;
  Status DeleteKeyBook(std::string_view key) const;

 private:
  template <class Book>
  int Replace(std::unique_ptr<Book>& slot, Book* book, std::int32_t mode);
  Status Clear(BookKind kind, std::string_view book);
  Status Size(BookKind kind, std::string_view book, std::uint32_t* count) const;
  Status CountLists(BookKind kind, std::uint32_t* count) const;
  Status ListLists(BookKind kind, ABIdent* books, std::uint32_t* count) const;
  Status RenameList(BookKind kind, const std::string& oldName, const std::string& newName) const;
  BookAccess<CMenuItem> TopEntries() const;
  BookAccess<CMenuItem> KeyItems(std::string_view key) const;

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

// Two scanners are the same appliance when their addresses are equal.
inline bool operator==(const CScanner& a, const CScanner& b) {
  return a.Address() == b.Address();
}

// The scanner of an object that has one, otherwise a scanner without an agent: its operations
// return -1 and make no call, those of ClearEmailBook's kind 0.
const CScanner& ScannerOrUnbound(const CScanner* scanner);

}  // namespace quillkit

#endif  // QUILLKIT_APPLIANCE_SCANNER_H_
