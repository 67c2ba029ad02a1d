// The model of the sliding view.

#ifndef QUILLKIT_TESTS_VIEWS_MODEL_SLIDING_H_
#define QUILLKIT_TESTS_VIEWS_MODEL_SLIDING_H_

#include "tests/views/model_view.h"

namespace quillkit {

class ModelSliding : public ModelView {
 public:
  using ModelView::ModelView;

  std::string State() const {
    const char* name = current == &low    ? "low"
                       : current == &mid  ? "mid"
                       : current == &high ? "high"
                                          : "-";
    std::string text = std::string(name) + " " + std::to_string(cursor);
    for (const Entries* each : {&low, &mid, &high}) text += " " + Shown(*each);
    return text;
  }
  CEmailEntry* Held() { return current != nullptr ? At(*current, cursor) : nullptr; }

  CEmailEntry* First() override { return LoadUp("", "") ? Stand(low, 0) : nullptr; }
  CEmailEntry* Last() override {
    std::uint32_t size = 0;
    if (BookSize(&size) != kNoError || size == 0) return nullptr;
    return GetAt(static_cast<std::int32_t>(size) - 1);
  }
  CEmailEntry* Next() override {
    if (low.empty() && mid.empty() && high.empty()) return nullptr;
    if (current == nullptr || current->empty()) return cursor = 0, nullptr;
    if (++cursor < std::ssize(*current)) return Held();
    if (current == &low) return Stand(mid, 0);
    if (current == &mid) return Stand(high, 0);
    return LoadUp(NameIn(high.back()), "") ? Stand(low, 0) : nullptr;
  }
  CEmailEntry* Prev() override {
    if (current == nullptr || current->empty()) return cursor = 0, nullptr;
    const CEmailEntry* from = Held();
    const std::string name = from != nullptr ? NameIn(*from) : "";
    if (--cursor >= 0) return Held();
    if (current == &high) return StandLast(mid.empty() ? low : mid);
    if (current == &mid) return StandLast(low);
    if (!LoadDown(name)) return nullptr;
    return StandLast(high.empty() ? mid : high);
  }
  CEmailEntry* GetAt(std::int32_t index) override {
    std::uint32_t size = 0;
    if (BookSize(&size) != kNoError || index < 0) return nullptr;
    if (static_cast<std::uint32_t>(index) >= size) return nullptr;
    const Status status = LoadBoundaries(0);
    if (status != kNoError) return IsGood(status) ? Held() : nullptr;
    char letter = '\0';
    const std::int32_t start = LetterOfIndex(index + 1, &letter);
    if (start < 0) return Held();
    const Read named = ReadRun("", LetterFilter(letter), index - start, 1, 1);
    if (named.status != 0 && named.status != 21) return named.IsGood() ? Held() : nullptr;
    bool endsAtKey = false;
    if (!LoadAround(named.entries.empty() ? "" : NameIn(named.entries.front()), &endsAtKey)) {
      return nullptr;
    }
    return endsAtKey ? StandLast(low) : Stand(mid, 0);
  }
  Status Remove(CEmailEntry* entry, std::int32_t flag) override {
    if (flag != 0) return book->DeleteEntry(entry);
    if (Find(entry->name.View(), 1) == nullptr) return kDataNotFound;
    current->erase(current->begin() + cursor);
    return kNoError;
  }
  CEmailEntry* Find(std::string_view key, std::int32_t flag) override {
    if (flag == 1) Reset();
    return Seek(key, 1);
  }
  CEmailEntry* FindLetter(char letter) override {
    cursor = -1;
    return LoadUp("", LetterFilter(letter)) && !low.empty() ? Stand(low, 0) : nullptr;
  }
  CEmailEntry* FindPrefix(std::string_view key) override { return Seek(key, 0); }
  Status Modify(CEmailEntry* entry, std::int32_t flag) override {
    const Status status = flag == 1 ? book->ModifyEntry(entry) : kNoError;
    CEmailEntry* found = status == kNoError ? Search(entry->name.View(), 1) : nullptr;
    if (found != nullptr) found->address = entry->address;
    if (found != nullptr) found->flags = 0;
    return status;
  }
  Status ModifyByKey(std::string_view key, CEmailEntry* entry, std::int32_t flag) override {
    const Status status = flag == 1 ? book->RenameEntry(key, entry) : kNoError;
    CEmailEntry* found = status == kNoError ? Search(entry->name.View(), 1) : nullptr;
    if (found != nullptr) found->SetName(key);
    return status;
  }
  void Reset() override { low.clear(), mid.clear(), high.clear(); }
  std::int32_t SetPageSize(std::int32_t size) override {
    if (size <= 0) return 0;
    for (Entries* page : {&low, &mid, &high}) page->assign(static_cast<std::size_t>(size), {});
    return size;
  }

 private:
  static std::string NameIn(const CEmailEntry& entry) { return std::string(entry.name.View()); }

  CEmailEntry* Stand(Entries& page, std::int32_t index) {
    current = &page;
    cursor = index;
    return Held();
  }
  CEmailEntry* StandLast(Entries& page) {
    return Stand(page, page.empty() ? 0 : static_cast<std::int32_t>(page.size()) - 1);
  }
  // One read into a page. Whether it was good.
  bool Fill(Entries& page, const std::string& key, std::string_view filter, int direction) {
    Read read = ReadRun(key, filter, 0, pageSize, direction);
    page = std::move(read.entries);
    return read.IsGood();
  }
  // Of the reads of a load the last one's status counts.
  bool LoadUp(const std::string& key, std::string_view filter) {
    Reset();
    Fill(low, key, filter, 1);
    if (!low.empty()) Fill(mid, NameIn(low.back()), filter, 1);
    return mid.empty() || Fill(high, NameIn(mid.back()), filter, 1);
  }
  bool LoadDown(const std::string& key) {
    Reset();
    Fill(high, key, "", 0);
    if (!high.empty()) Fill(mid, NameIn(high.front()), "", 0);
    return mid.empty() || Fill(low, NameIn(mid.front()), "", 0);
  }
  bool LoadAround(const std::string& key, bool* endsAtKey) {
    Reset();
    Fill(mid, key, "", 1);
    *endsAtKey = !mid.empty();
    if (*endsAtKey) Fill(low, NameIn(mid.front()), "", 0);
    if (*endsAtKey) return Fill(high, NameIn(mid.back()), "", 1);
    Fill(low, key, "", 0);
    *endsAtKey = low.empty();
    return *endsAtKey ? Fill(low, "", "", 1) : Fill(mid, NameIn(low.back()), "", 1);
  }
  CEmailEntry* Seek(std::string_view key, std::int32_t exact) {
    lastSearch = key;
    CEmailEntry* found = Search(lastSearch, exact);
    bool endsAtKey = false;
    if (found == nullptr && LoadAround(lastSearch, &endsAtKey)) found = Search(lastSearch, exact);
    return found;
  }
  CEmailEntry* Search(std::string_view key, std::int32_t exact) {
    for (Entries* page : {&low, &mid, &high}) {
      const std::int32_t found = Locate(*page, key, exact);
      if (found >= 0) return Stand(*page, found);
      if (found == -1) return nullptr;
    }
    return nullptr;
  }

  Entries low, mid, high;
  Entries* current = nullptr;
};

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_VIEWS_MODEL_SLIDING_H_
