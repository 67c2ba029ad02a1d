// The sliding view, compared with a model of it.

#include <string>

#include "tests/views/view_walk.h"
#include "views/sliding_entry_view.h"

namespace quillkit {
namespace {

class ModelSliding : public ModelView {
 public:
  using ModelView::ModelView;

  CEmailEntry* First() override { return LoadFrom("", "", 1) ? MoveTo(low, 0) : nullptr; }
  CEmailEntry* Last() override {
    std::uint32_t size = 0;
    if (BookSize(&size) != kNoError || size == 0) return nullptr;
    return GetAt(static_cast<std::int32_t>(size) - 1);
  }
  CEmailEntry* Next() override {
    if (low.empty() && mid.empty() && high.empty()) return nullptr;
    if (page->empty() || ++cursor < Count()) return page->empty() ? MoveTo(0) : At(cursor);
    if (page != &high) return MoveTo(page == &low ? mid : high, 0);
    return LoadFrom(high.back().Name(), "", 1) ? MoveTo(low, 0) : nullptr;
  }
  CEmailEntry* Prev() override {
    if (page->empty()) return MoveTo(0);
    const std::string from = At(cursor) != nullptr ? At(cursor)->Name() : "";
    if (--cursor >= 0) return At(cursor);
    if (page != &low) return MoveToLast(page == &high && !mid.empty() ? mid : low);
    return LoadFrom(from, "", 0) ? MoveToLast(high.empty() ? mid : high) : nullptr;
  }
  CEmailEntry* GetAt(std::int32_t index) override {
    if (!HasIndex(index)) return nullptr;
    Status status = LoadBoundaries(0);
    char letter = '\0';
    const std::int32_t start = status == kNoError ? LetterOfIndex(index + 1, &letter) : -1;
    Entries named;
    if (start >= 0) status = Read(named, "", LetterFilter(letter), 1, 1, index - start);
    if (start < 0 || status == 4) return IsGood(status) ? At(cursor) : nullptr;
    named.resize(1);
    Entries* const place = IsGood(status) ? LoadAround(named.front().Name()) : nullptr;
    if (place == nullptr) return nullptr;
    return place == &low ? MoveToLast(low) : MoveTo(mid, 0);
  }
  CEmailEntry* FindLetter(char letter) override {
    cursor = -1;
    return LoadFrom("", LetterFilter(letter), 1) && !low.empty() ? MoveTo(low, 0) : nullptr;
  }
  Status Remove(CEmailEntry* entry, std::int32_t flag) override {
    if (flag != 0) return book->DeleteEntry(entry);
    if (Find(entry->Name(), 1) == nullptr) return kDataNotFound;
    page->erase(page->begin() + cursor);
    return kNoError;
  }
  Status Modify(CEmailEntry* entry, std::int32_t flag) override {
    const Status status = flag == 1 ? book->ModifyEntry(entry) : kNoError;
    CEmailEntry* found = status == kNoError ? Search(entry->Name(), 1) : nullptr;
    if (found != nullptr) *found = MakeEntry(entry->Name(), entry->Address());
    return status;
  }
  Status ModifyByKey(std::string_view key, CEmailEntry* entry, std::int32_t flag) override {
    const Status status = flag == 1 ? book->RenameEntry(key, entry) : kNoError;
    CEmailEntry* found = status == kNoError ? Search(entry->Name(), 1) : nullptr;
    if (found != nullptr) found->SetName(key);
    return status;
  }
  void Reset() override { low.clear(), mid.clear(), high.clear(); }
  std::int32_t SetPageSize(std::int32_t size) override {
    if (size <= 0) return 0;
    for (Entries* each : {&low, &mid, &high}) each->assign(static_cast<std::size_t>(size), {});
    return size;
  }

 private:
  using ModelView::MoveTo;
  CEmailEntry* MoveTo(Entries& target, std::int32_t index) {
    page = &target;
    return MoveTo(index);
  }
  CEmailEntry* MoveToLast(Entries& target) {
    return MoveTo(target, target.empty() ? 0 : static_cast<std::int32_t>(target.size()) - 1);
  }
  // Returns whether the read into this page succeeded.
  bool Fill(Entries& target, const std::string& key, std::string_view filter, int direction) {
    return IsGood(Read(target, key, filter, pageSize, direction));
  }
  // Reads the pages in this direction, each from the end of the page before it, until one is empty.
  // Returns whether the third read succeeded, or true if it was not made.
  bool LoadFrom(std::string key, std::string_view filter, int direction) {
    const Access access(*book);
    Reset();
    Entries* const last = direction == 1 ? &high : &low;
    for (Entries* each : {direction == 1 ? &low : &high, &mid, last}) {
      const bool isGood = Fill(*each, key, filter, direction);
      if (each->empty()) return isGood || each != last;
      key = (direction == 1 ? each->back() : each->front()).Name();
    }
    return true;
  }
  // Returns the page whose inner edge, the end of the low or the start of the middle page, is at
  // the key; or null if the last read failed.
  Entries* LoadAround(const std::string& key) {
    const Access access(*book);
    Reset();
    Fill(mid, key, "", 1);
    if (!mid.empty()) {
      Fill(low, mid.front().Name(), "", 0);
      return Fill(high, mid.back().Name(), "", 1) ? &low : nullptr;
    }
    Fill(low, key, "", 0);
    if (!low.empty()) return Fill(mid, low.back().Name(), "", 1) ? &mid : nullptr;
    return Fill(low, "", "", 1) ? &low : nullptr;
  }
  CEmailEntry* Seek(std::string_view key, std::int32_t exact) override {
    lastSearch = key;
    CEmailEntry* found = Search(lastSearch, exact);
    if (found != nullptr || LoadAround(lastSearch) == nullptr) return found;
    return Search(lastSearch, exact);
  }
  CEmailEntry* Search(std::string_view key, std::int32_t exact) {
    for (Entries* each : {&low, &mid, &high}) {
      const std::int32_t found = Locate(*each, key, exact);
      if (found != -2) return found >= 0 ? MoveTo(*each, found) : nullptr;
    }
    return nullptr;
  }

  Entries low, mid, high;
};

TEST_F(ViewWalk, SlidingViewMatchesItsModel) {
  for (const std::int32_t pageSize : {16, 5, 1, 0}) {
    SCOPED_TRACE("page size " + std::to_string(pageSize));
    Compare<CSlidingEntryView, ModelSliding>(pageSize);
  }
}

TEST_F(ViewWalk, SlidingViewFindsARenamedEntryOnlyAtThePlaceOfItsName) {
  PutBook("aabd", 4);
  CSlidingEntryView view(2);
  view.AttachBook(&book);
  view.First();
  CEmailEntry entry = MakeEntry("b2");
  EXPECT_EQ(view.ModifyByKey("a01", &entry, 0), kNoError);
  EXPECT_EQ(view.Find("a01", 0), nullptr) << "a01 is in the page after a0 and a1";
}

}  // namespace
}  // namespace quillkit
