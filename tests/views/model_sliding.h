// The model of the sliding view.

#ifndef QUILLKIT_TESTS_VIEWS_MODEL_SLIDING_H_
#define QUILLKIT_TESTS_VIEWS_MODEL_SLIDING_H_

#include "tests/views/model_view.h"

namespace quillkit {

inline std::string NameIn(const CEmailEntry& entry) {
  return std::string(entry.name.View());
}

class ModelSliding : public ModelView {
 public:
  ModelSliding(ModelBook* newBook, std::int32_t pageSize) : ModelView(newBook), size(pageSize) {}

  std::string State() const override {
    const char* name = current == &low    ? "low"
                       : current == &mid  ? "mid"
                       : current == &high ? "high"
                                          : "-";
    std::string text = std::string(name) + " " + std::to_string(index);
    for (const Entries* each : {&low, &mid, &high}) text += " " + Shown(*each);
    return text;
  }
  const CEmailEntry* First() override { return LoadUp("", "") ? Stand(&low, 0) : nullptr; }
  const CEmailEntry* Last() override {
    std::uint32_t count = 0;
    if (book->Size(&count) != 0 || count == 0) return nullptr;
    return GetAt(static_cast<std::int32_t>(count) - 1);
  }
  const CEmailEntry* Next() override {
    if (low.empty() && mid.empty() && high.empty()) return nullptr;
    if (current == nullptr || current->empty()) {
      index = 0;
      return nullptr;
    }
    ++index;
    if (index >= std::ssize(*current)) {
      if (current == &low) return Stand(&mid, 0);
      if (current == &mid) return Stand(&high, 0);
      return LoadUp(NameIn(high.back()), "") ? Stand(&low, 0) : nullptr;
    }
    return Stand(current, index);
  }
  const CEmailEntry* Prev() override {
    if (current == nullptr || current->empty()) {
      index = 0;
      return nullptr;
    }
    const CEmailEntry* from = Stand(current, index);
    const std::string name = from != nullptr ? NameIn(*from) : "";
    --index;
    if (index >= 0) return Stand(current, index);
    if (current == &high) return StandLast(mid.empty() ? &low : &mid);
    if (current == &mid) return StandLast(&low);
    if (!LoadDown(name)) return nullptr;
    return high.empty() ? Stand(&mid, 0) : StandLast(&high);
  }
  const CEmailEntry* GetAt(std::int32_t at) override {
    std::uint32_t count = 0;
    if (book->Size(&count) != 0 || at < 0 || static_cast<std::uint32_t>(at) >= count)
      return nullptr;
    const auto here = [this] { return current != nullptr ? Stand(current, index) : nullptr; };
    const Status status = LoadCensus();
    if (status != 0) return IsGood(status) ? here() : nullptr;
    std::int32_t before = 0;
    const int row = RowOf(at, &before);
    if (row < 0) return here();
    const std::string filter = LetterText(census->at(static_cast<std::size_t>(row)).letter);
    const auto named = book->ReadRun("", filter, at - before, 1, 1);
    if (named.status != 0 && named.status != 21) return named.status == 4 ? here() : nullptr;
    bool endsAtKey = false;
    const std::string name = named.entries.empty() ? "" : NameIn(named.entries.front());
    if (!LoadAround(name, &endsAtKey)) return nullptr;
    return endsAtKey ? StandLast(&low) : Stand(&mid, 0);
  }
  Status Remove(const CEmailEntry& entry, std::int32_t flag) override {
    if (flag != 0) return book->Delete(entry.name.View());
    if (Find(entry.name.View(), 1) == nullptr) return 4;
    current->erase(current->begin() + index);
    return 0;
  }
  const CEmailEntry* Find(std::string_view key, std::int32_t flag) override {
    if (flag == 1) Reset();
    return Seek(key, 1);
  }
  const CEmailEntry* FindLetter(char letter) override {
    index = -1;
    if (!LoadUp("", LetterText(letter)) || low.empty()) return nullptr;
    return Stand(&low, 0);
  }
  const CEmailEntry* FindPrefix(std::string_view key) override { return Seek(key, 0); }
  Status Modify(const CEmailEntry& entry, std::int32_t flag) override {
    const Status status = ModifyIf(flag, entry.name.View(), entry);
    CEmailEntry* found = status == 0 ? Search(entry.name.View(), 1) : nullptr;
    if (found != nullptr) found->address = entry.address;
    if (found != nullptr) found->flags = 0;
    return status;
  }
  Status ModifyByKey(std::string_view key, const CEmailEntry& entry, std::int32_t flag) override {
    const Status status = ModifyIf(flag, key, entry);
    CEmailEntry* found = status == 0 ? Search(entry.name.View(), 1) : nullptr;
    if (found != nullptr) found->SetName(key);
    return status;
  }
  void Reset() override { low.clear(), mid.clear(), high.clear(); }
  std::int32_t SetPageSize(std::int32_t newSize) override {
    if (newSize <= 0) return 0;
    for (Entries* page : {&low, &mid, &high}) page->assign(static_cast<std::size_t>(newSize), {});
    return newSize;
  }

 private:
  CEmailEntry* Stand(Entries* page, std::int32_t newIndex) {
    current = page;
    index = newIndex;
    return At(*page, index);
  }
  CEmailEntry* StandLast(Entries* page) {
    return Stand(page, page->empty() ? 0 : static_cast<std::int32_t>(page->size()) - 1);
  }
  Entries ReadBack(const std::string& key) { return book->ReadRun(key, "", 0, size, 0).entries; }
  bool LoadUp(std::string key, std::string filter) {
    Reset();
    low = book->ReadOn(key, filter, size).entries;
    if (low.empty()) return true;
    mid = book->ReadOn(NameIn(low.back()), filter, size).entries;
    return mid.empty() || Ends(&high, book->ReadOn(NameIn(mid.back()), filter, size));
  }
  bool LoadDown(std::string key) {
    Reset();
    high = ReadBack(key);
    if (high.empty()) return true;
    mid = ReadBack(NameIn(high.front()));
    return mid.empty() || Ends(&low, book->ReadRun(NameIn(mid.front()), "", 0, size, 0));
  }
  // Takes the last read of a span. Whether it was good.
  static bool Ends(Entries* page, const ModelBook::Read& read) {
    *page = read.entries;
    return IsGood(read.status);
  }
  bool LoadAround(std::string key, bool* endsAtKey) {
    Reset();
    mid = book->ReadOn(key, "", size).entries;
    *endsAtKey = true;
    if (!mid.empty()) {
      low = ReadBack(NameIn(mid.front()));
      return Ends(&high, book->ReadOn(NameIn(mid.back()), "", size));
    }
    low = ReadBack(key);
    *endsAtKey = low.empty();
    if (low.empty()) return Ends(&low, book->ReadOn("", "", size));
    return Ends(&mid, book->ReadOn(NameIn(low.back()), "", size));
  }
  CEmailEntry* Seek(std::string_view key, std::int32_t exact) {
    sought = key;
    CEmailEntry* found = Search(sought, exact);
    bool endsAtKey = false;
    if (found == nullptr && LoadAround(sought, &endsAtKey)) found = Search(sought, exact);
    return found;
  }
  CEmailEntry* Search(std::string_view key, std::int32_t exact) {
    for (Entries* page : {&low, &mid, &high}) {
      const int found = Locate(*page, key, exact);
      if (found >= 0) return Stand(page, found);
      if (found == -1) return nullptr;
    }
    return nullptr;
  }

  std::int32_t size;
  Entries low, mid, high;
  Entries* current = nullptr;
  std::int32_t index = 0;
};

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_VIEWS_MODEL_SLIDING_H_
