#include "books/email_ab.h"

#include <algorithm>

#include "base/archive.h"
#include "bridge/long_timeout.h"
#include "views/full_entry_view.h"
#include "views/letter_entry_view.h"
#include "views/sliding_entry_view.h"

namespace quillkit {
namespace {

constexpr std::int32_t kPageSize = 16;
constexpr std::int32_t kHandlePageSize = 1;
constexpr std::int32_t kSlidingMode = 0;
constexpr std::int32_t kLetterMode = 1;
constexpr std::int32_t kEditableMode = 2;
constexpr std::int32_t kLoadAll = 0;
constexpr std::int32_t kLoadLists = 1;
constexpr std::int32_t kLoadView = 2;

std::unique_ptr<CEntryView> MakeView(std::int32_t mode, std::int32_t pageSize) {
  if (mode == kSlidingMode) return std::make_unique<CSlidingEntryView>(pageSize);
  if (mode == kLetterMode) return std::make_unique<CLetterEntryView>();
  return std::make_unique<CFullEntryView>();
}

// Used if the book has no view. It has no entries, and refuses changes.
class NoView : public CEntryView {
 public:
  NoView() : CEntryView(0) {}

  Status Remove(CEmailEntry* /*entry*/, std::int32_t /*flag*/) override { return kRefused; }
  Status Modify(CEmailEntry* /*entry*/, std::int32_t /*flag*/) override { return kRefused; }
  Status ModifyByKey(std::string_view /*key*/, CEmailEntry* /*entry*/,
                     std::int32_t /*flag*/) override {
    return kRefused;
  }
  std::int32_t AddLocal(CEmailEntry* /*entry*/) override { return -1; }
  std::int32_t RemoveLocal(CEmailEntry* /*entry*/) override { return -1; }
  std::int32_t ModifyLocal(CEmailEntry* /*entry*/) override { return 0; }
  std::int32_t ModifyLocalByKey(std::string_view /*key*/, CEmailEntry* /*entry*/) override {
    return 0;
  }
};

}  // namespace

template class ServerList<CEmailEntry, CEmailAB, BookKind::kPublicList>;
template class PublicList<CEmailEntry, CEmailAB, BookKind::kPublicList>;
template class PublicListBook<CEmailAB, CPubEmailDL>;

const ClassRecord CEmailAB::kClass = {"CEmailAB", sizeof(CEmailAB), 1, CreateObject<CEmailAB>,
                                      nullptr};

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

// Replaces the view by a new one of the book's mode. Returns the result of its AttachBook.
int CEmailAB::OpenView(std::int32_t pageSize) {
  view = MakeView(viewMode, pageSize);
  return view->AttachBook(this);
}

CEntryView& CEmailAB::AbsentView() {
  static NoView none;
  return none;
}

CEntryView& CEmailAB::EditableView() const {
  return viewMode == kEditableMode ? ViewOrNone() : AbsentView();
}

std::int32_t CEmailAB::SetPageSize(std::int32_t size) {
  if (viewMode != kSlidingMode || size <= 0) return -1;
  if (view == nullptr && OpenView(kPageSize) != 1) return -1;
  return view->SetPageSize(size);
}

Status CEmailAB::ClearBook() {
  if (scanner == nullptr) return kRefused;
  const Status status = scanner->ClearEmailBook();
  Attach(scanner, viewMode);
  return status;
}

Status CEmailAB::DeleteBook() {
  LongTimeout timeout(Agent(), LongTimeout::Unit::kMilliseconds);
  return timeout
      .RunAndRestore([this] {
        const Status status = Entries().DeleteBook();
        view.reset();
        FreeLists();
        return status;
      })
      .work;
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

Status CEmailAB::CreateMemberAddress(std::string_view list, std::string_view name,
                                     std::string_view address) const {
  CEmailEntry entry;
  if (entry.SetName(name) == 0 || entry.SetAddress(address) == 0) return kRefused;
  return CreateMember(list, &entry);
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

}  // namespace quillkit
