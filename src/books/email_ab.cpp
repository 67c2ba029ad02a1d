#include "books/email_ab.h"

#include <algorithm>
#include <string>

#include "appliance/scanner.h"
#include "base/archive.h"
#include "views/full_entry_view.h"
#include "views/letter_entry_view.h"
#include "views/sliding_entry_view.h"

namespace quillkit {
namespace {

constexpr std::int32_t kPageSize = 16;
constexpr std::int32_t kHandlePageSize = 1;
constexpr std::int32_t kSlidingMode = 0;
constexpr std::int32_t kLetterMode = 1;
constexpr std::int32_t kLoadAll = 0;
constexpr std::int32_t kLoadLists = 1;
constexpr std::int32_t kLoadView = 2;

std::unique_ptr<CEntryView> MakeView(std::int32_t mode, std::int32_t pageSize) {
  if (mode == kSlidingMode) return std::make_unique<CSlidingEntryView>(pageSize);
  if (mode == kLetterMode) return std::make_unique<CLetterEntryView>();
  return std::make_unique<CFullEntryView>();
}

}  // namespace

template class PublicListBook<CEmailAB, CPubEmailDL>;

const ClassRecord CEmailAB::kClass = {"CEmailAB", sizeof(CEmailAB), 1, CreateObject<CEmailAB>,
                                      nullptr};

CEmailAB::CEmailAB() = default;
CEmailAB::~CEmailAB() = default;

void CEmailAB::Serialize(Archive& archive) {
  SerializeLists(archive);
}

int CEmailAB::Attach(CScanner* newScanner, std::int32_t newViewMode) {
  scanner = newScanner;
  viewMode = newViewMode;
  return scanner != nullptr ? OpenView(kPageSize) : 0;
}

int CEmailAB::Attach(CScanner* newScanner, std::int32_t newViewMode, std::int32_t newLoadMode) {
  scanner = newScanner;
  viewMode = newViewMode;
  loadMode = newLoadMode;
  if (scanner == nullptr) return 0;
  view.reset();
  if (loadMode == kLoadAll || loadMode == kLoadView) OpenView(kHandlePageSize);
  if (loadMode == kLoadAll || loadMode == kLoadLists) return LoadLists(1) == kNoError ? 1 : 0;
  return loadMode == kLoadView ? 1 : 0;
}

// Replaces the view by a new one of the book's mode: what its AttachBook gives.
int CEmailAB::OpenView(std::int32_t pageSize) {
  view = MakeView(viewMode, pageSize);
  return view->AttachBook(this);
}

std::int32_t CEmailAB::GetPageSize() const {
  return view != nullptr ? view->GetPageSize() : 0;
}

std::int32_t CEmailAB::SetPageSize(std::int32_t size) {
  if (viewMode != kSlidingMode || size <= 0) return -1;
  if (view == nullptr && OpenView(kPageSize) != 1) return -1;
  return view->SetPageSize(size);
}

CAgent* CEmailAB::Agent() const {
  return scanner != nullptr ? scanner->RawAgent() : nullptr;
}

Status CEmailAB::EntryCount(std::uint32_t* count) const {
  return scanner != nullptr ? scanner->SizeofEmail(count) : kRefused;
}

Status CEmailAB::ServerListSize(std::string_view list, std::uint32_t* count) const {
  return scanner != nullptr ? scanner->SizeofPublicList(std::string(list), count) : kRefused;
}

Status CEmailAB::ServerListCount(std::uint32_t* count) const {
  return scanner != nullptr ? scanner->CountPublicLists(count) : kRefused;
}

Status CEmailAB::EnumerateLists(ABIdent* rows, std::uint32_t* count) const {
  return scanner != nullptr ? scanner->ListPublicLists(rows, count) : kRefused;
}

Status CEmailAB::ClearBook() {
  if (scanner == nullptr) return kRefused;
  const Status status = scanner->ClearEmailBook();
  Attach(scanner, viewMode);
  return status;
}

Status CEmailAB::DeleteBook() {
  LongTimeout timeout(Agent());
  Status status = timeout.Raise();
  if (status != kNoError) return status;
  status = Entries().DeleteBook();
  timeout.Restore();
  view.reset();
  FreeLists();
  return status;
}

Status CEmailAB::SetServerTimeout(std::uint32_t seconds, std::uint32_t* old) const {
  return scanner != nullptr ? scanner->SetServerTimeout(seconds, old) : kRefused;
}

Status CEmailAB::ReadBoundaries(PageBoundary* table, std::uint32_t* count) const {
  if (scanner != nullptr) return scanner->ReadPageBoundaries(table, count);
  if (table == nullptr || !OffersRoom(count)) return kRefused;
  ABIdent book(BookKind::kEmail, kEmailBook);
  return TheAgent.IMSPReadPageBoundaries(&book, table, count);
}

Status CEmailAB::ServerCall(IOCtlRecord* request) const {
  return scanner != nullptr ? scanner->ServerCall(request) : kRefused;
}

int CEmailAB::CopyList(const CPubEmailDL& list, std::string_view newName, std::int32_t reload) {
  const std::unique_ptr<CPubEmailDL> copy = Copy(list, newName);
  return copy != nullptr && AddListReload(*copy, reload) ? 1 : 0;
}

std::int32_t CEmailAB::CopyListLocal(const CPubEmailDL& list, std::string_view newName) {
  std::unique_ptr<CPubEmailDL> copy = Copy(list, newName);
  if (copy == nullptr) return -1;
  const std::int32_t count = AddList(copy.get());
  if (count >= 0) (void)copy.release();
  return count;
}

Status CEmailAB::AddEntry(CEmailEntry* entry) const {
  std::uint32_t count = 0;
  if (EntryCount(&count) == kNoError && count >= std::uint32_t{MaxEmailEntries}) return kBookFull;
  return Entries().Create(entry);
}

Status CEmailAB::CreateMemberAddress(std::string_view list, std::string_view name,
                                     std::string_view address) const {
  CEmailEntry entry;
  if (entry.SetName(name) == 0 || entry.SetAddress(address) == 0) return kRefused;
  return CreateMember(list, &entry);
}

Status CEmailAB::ReadFirstEntry(CEmailEntry* entry) const {
  return ReadEdge(entry, false);
}

Status CEmailAB::ReadLastEntry(CEmailEntry* entry) const {
  return ReadEdge(entry, true);
}

Status CEmailAB::ReadEdge(CEmailEntry* entry, bool last) const {
  if (view == nullptr || scanner == nullptr) return kRefused;
  Status status = view->LoadBoundaries(0);
  if (status != kNoError && status != kMoreData) return status;
  std::int32_t rows = 0;
  const PageBoundary* table = view->GetBoundaries(&rows);
  if (rows == 0) return kDataNotFound;
  const PageBoundary& row = table[last ? rows - 1 : 0];
  KeyRange range({}, std::string{row.letter, '*'}, last ? std::max(row.count, 1) - 1 : 0);
  CEmailEntry read;
  std::uint32_t count = 1;
  status = ReadEntries(&range, &read, &count, 1);
  if (status != kNoError && status != kMoreData) return status;
  if (count == 0) return kDataNotFound;
  *entry = read;
  return kNoError;
}

BookAccess<CEmailEntry> CEmailAB::Entries() const {
  return scanner != nullptr ? scanner->EmailEntries()
                            : BookAccess<CEmailEntry>(nullptr, BookKind::kEmail, kEmailBook);
}

BookAccess<CEmailEntry> CEmailAB::MembersOf(std::string_view list) const {
  return scanner != nullptr ? scanner->PublicList(list)
                            : BookAccess<CEmailEntry>(nullptr, BookKind::kPublicList, list);
}

}  // namespace quillkit
