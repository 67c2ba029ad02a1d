#include "appliance/scanner.h"

#include "base/archive.h"
#include "books/email_ab.h"
#include "books/fax_ab.h"
#include "books/printer_ab.h"
#include "books/user_ab.h"
#include "softkeys/top_level_ab.h"

namespace quillkit {

const ClassRecord CScanner::kClass = {"CScanner", sizeof(CScanner), 1, CreateObject<CScanner>,
                                      nullptr};

CScanner::CScanner() = default;

CScanner::~CScanner() {
  // Members would be destroyed in the reverse order.
  emailBook.reset();
  usersBook.reset();
  faxBook.reset();
  printersBook.reset();
  topBook.reset();
}

void CScanner::Serialize(Archive& archive) {
  archive.Exchange(name);
  archive.Exchange(address);
  archive.Exchange(model);
  archive.Exchange(version);
}

int CScanner::Init(const std::string& newName, const std::uint32_t* newAddress,
                   const std::string& newModel, const std::string& newVersion, CAgent* newAgent) {
  if (newAgent == nullptr || newAddress == nullptr || *newAddress == 0) return 0;
  name = newName;
  address = *newAddress;
  model = newModel;
  version = newVersion;
  agent = newAgent;
  return 1;
}

void CScanner::GetName(std::string& text) const {
  if (IsBound()) text = name;
}

void CScanner::GetModel(std::string& text) const {
  if (IsBound()) text = model;
}

void CScanner::GetVersion(std::string& text) const {
  if (IsBound()) text = version;
}

void CScanner::GetAddress(std::uint32_t* value) const {
  if (IsBound()) *value = address;
}

CEmailAB* CScanner::DetachEmailBook() {
  return IsBound() ? emailBook.release() : nullptr;
}

CUserAB* CScanner::DetachUsersBook() {
  return IsBound() ? usersBook.release() : nullptr;
}

CFaxAB* CScanner::DetachFaxBook() {
  return IsBound() ? faxBook.release() : nullptr;
}

CPrinterAB* CScanner::DetachPrintersBook() {
  return IsBound() ? printersBook.release() : nullptr;
}

CTopLevelAB* CScanner::DetachTopBook() {
  return IsBound() ? topBook.release() : nullptr;
}

// Replaces the book in the slot by `book`, or by a new one that is attached with `mode`. Returns
// the result of Attach, or 1; 0 and no change on an unbound scanner.
template <class Book>
int CScanner::Replace(std::unique_ptr<Book>& slot, Book* book, std::int32_t mode) {
  if (!IsBound()) return 0;
  if (book != nullptr) {
    if (book != slot.get()) slot.reset(book);
    return 1;
  }
  slot.reset();
  slot = std::make_unique<Book>();
  return slot->Attach(this, mode);
}

int CScanner::SetEmailBook(CEmailAB* book) {
  constexpr std::int32_t kSlidingView = 0;
  Replace(emailBook, book, kSlidingView);
  return IsBound() ? 1 : 0;
}

int CScanner::SetUsersBook(CUserAB* book) {
  return Replace(usersBook, book, 1);
}

int CScanner::SetFaxBook(CFaxAB* book) {
  return Replace(faxBook, book, 1);
}

int CScanner::SetPrintersBook(CPrinterAB* book) {
  Replace(printersBook, book, 1);
  return IsBound() ? 1 : 0;
}

int CScanner::SetTopBook(CTopLevelAB* book) {
  return Replace(topBook, book, 1);
}

const CScanner& ScannerOrUnbound(const CScanner* scanner) {
  static const CScanner unbound;
  return scanner != nullptr ? *scanner : unbound;
}

}  // namespace quillkit
