#include "appliance/scanner.h"

#include "base/archive.h"
#include "books/email_ab.h"
#include "books/printer_ab.h"
#include "softkeys/top_level_ab.h"

namespace quillkit {

const ClassRecord CScanner::kClass = {"CScanner", sizeof(CScanner), 1, CreateObject<CScanner>,
                                      nullptr};

CScanner::CScanner() = default;

CScanner::~CScanner() {
  emailBook.reset();
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

int CScanner::SetEmailBook(CEmailAB* book) {
  if (!IsBound()) return 0;
  if (book != nullptr) {
    if (book != emailBook.get()) emailBook.reset(book);
    return 1;
  }
  emailBook = std::make_unique<CEmailAB>();
  emailBook->Attach(this, 0);
  return 1;
}

CPrinterAB* CScanner::DetachPrintersBook() {
  return IsBound() ? printersBook.release() : nullptr;
}

int CScanner::SetPrintersBook(CPrinterAB* book) {
  if (!IsBound()) return 0;
  if (book != nullptr) {
    if (book != printersBook.get()) printersBook.reset(book);
    return 1;
  }
  printersBook = std::make_unique<CPrinterAB>();
  printersBook->Attach(this, 1);
  return 1;
}

CTopLevelAB* CScanner::DetachTopBook() {
  return IsBound() ? topBook.release() : nullptr;
}

int CScanner::SetTopBook(CTopLevelAB* book) {
  if (!IsBound()) return 0;
  if (book != nullptr) {
    if (book != topBook.get()) topBook.reset(book);
    return 1;
  }
  topBook = std::make_unique<CTopLevelAB>();
  return topBook->Attach(this, 1);
}

}  // namespace quillkit
