#include "books/email_ab_handle.h"

namespace quillkit {
namespace {

constexpr std::int32_t kListsOnly = 1;
constexpr std::int32_t kEntriesOnly = 2;

CEmailAB& BookOrUnattached(CEmailAB* book) {
  static CEmailAB unattached;
  return book != nullptr ? *book : unattached;
}

}  // namespace

int CEmailABHandle::Attach(const CEmailAB* source, std::int32_t loadMode) {
  if (source == nullptr) return 0;
  auto opened = std::make_unique<CEmailAB>();
  const int result = opened->Attach(source->Scanner(), source->ViewMode(), loadMode);
  book = std::move(opened);  // last: `source` may be the replaced book
  mode = loadMode;
  return result;
}

CEmailAB& CEmailABHandle::EntryBook() const {
  return BookOrUnattached(mode == 0 || mode == kEntriesOnly ? book.get() : nullptr);
}

CEmailAB& CEmailABHandle::ListBook() const {
  return BookOrUnattached(mode == 0 || mode == kListsOnly ? book.get() : nullptr);
}

}  // namespace quillkit
