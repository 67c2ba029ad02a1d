#include "books/email_ab_handle.h"

#include "books/email_ab.h"

namespace quillkit {
namespace {

constexpr std::int32_t kListsAlone = 1;
constexpr std::int32_t kEntriesAlone = 2;

}  // namespace

CEmailABHandle::CEmailABHandle() = default;
CEmailABHandle::~CEmailABHandle() = default;

int CEmailABHandle::Attach(const CEmailAB* source, std::int32_t loadMode) {
  if (source == nullptr) return 0;
  auto opened = std::make_unique<CEmailAB>();
  const int result = opened->Attach(source->Scanner(), source->ViewMode(), loadMode);
  book = std::move(opened);  // only now: `source` may be the book that goes
  mode = loadMode;
  return result;
}

// The book, for the half that it names; else null.
CEmailAB* CEmailABHandle::EntryBook() const {
  return mode == 0 || mode == kEntriesAlone ? book.get() : nullptr;
}

CEmailAB* CEmailABHandle::ListBook() const {
  return mode == 0 || mode == kListsAlone ? book.get() : nullptr;
}

CEmailEntry* CEmailABHandle::First() {
  CEmailAB* half = EntryBook();
  return half != nullptr ? half->First() : nullptr;
}

CEmailEntry* CEmailABHandle::Last() {
  CEmailAB* half = EntryBook();
  return half != nullptr ? half->Last() : nullptr;
}

CEmailEntry* CEmailABHandle::Next() {
  CEmailAB* half = EntryBook();
  return half != nullptr ? half->Next() : nullptr;
}

CEmailEntry* CEmailABHandle::Prev() {
  CEmailAB* half = EntryBook();
  return half != nullptr ? half->Prev() : nullptr;
}

CEmailEntry* CEmailABHandle::GetAt(std::int32_t index) {
  CEmailAB* half = EntryBook();
  return half != nullptr ? half->GetAt(index) : nullptr;
}

CEmailEntry* CEmailABHandle::Find(std::string_view key, std::int32_t flag) {
  CEmailAB* half = EntryBook();
  return half != nullptr ? half->Find(key, flag) : nullptr;
}

CEmailEntry* CEmailABHandle::FindLetter(char letter) {
  CEmailAB* half = EntryBook();
  return half != nullptr ? half->FindLetter(letter) : nullptr;
}

CEmailEntry* CEmailABHandle::FindNext(std::int32_t exact) {
  CEmailAB* half = EntryBook();
  return half != nullptr ? half->FindNext(exact) : nullptr;
}

CEmailEntry* CEmailABHandle::FindPrev(std::int32_t exact) {
  CEmailAB* half = EntryBook();
  return half != nullptr ? half->FindPrev(exact) : nullptr;
}

CEmailEntry* CEmailABHandle::FindPrefix(std::string_view key) {
  CEmailAB* half = EntryBook();
  return half != nullptr ? half->FindPrefix(key) : nullptr;
}

CEmailEntry* CEmailABHandle::FindNextPrefix() {
  CEmailAB* half = EntryBook();
  return half != nullptr ? half->FindNextPrefix() : nullptr;
}

Status CEmailABHandle::EntryCount(std::uint32_t* count) const {
  CEmailAB* half = EntryBook();
  return half != nullptr ? half->EntryCount(count) : kRefused;
}

Status CEmailABHandle::ServerListCount(std::uint32_t* count) const {
  CEmailAB* half = ListBook();
  return half != nullptr ? half->ServerListCount(count) : kRefused;
}

Status CEmailABHandle::ServerListSize(std::string_view list, std::uint32_t* count) const {
  CEmailAB* half = ListBook();
  return half != nullptr ? half->ServerListSize(list, count) : kRefused;
}

CPubEmailDL* CEmailABHandle::FindList(std::string_view name) const {
  CEmailAB* half = ListBook();
  return half != nullptr ? half->FindList(name) : nullptr;
}

int CEmailABHandle::FindFirstList(std::string_view pattern, std::int32_t exact) {
  CEmailAB* half = ListBook();
  return half != nullptr ? half->FindFirstList(pattern, exact) : 0;
}

int CEmailABHandle::FindNextList(std::int32_t exact) {
  CEmailAB* half = ListBook();
  return half != nullptr ? half->FindNextList(exact) : 0;
}

}  // namespace quillkit
