// The model of the letter view.

#ifndef QUILLKIT_TESTS_VIEWS_MODEL_LETTER_H_
#define QUILLKIT_TESTS_VIEWS_MODEL_LETTER_H_

#include "tests/views/model_view.h"

namespace quillkit {

class ModelLetter : public ModelView {
 public:
  ModelLetter() : ModelView(0) {}

  std::string State() const {
    return "row " + std::to_string(row) + " cursor " + std::to_string(cursor) + " " + Shown(page);
  }
  CEmailEntry* Held() { return At(page, cursor); }

  CEmailEntry* First() override {
    if (!HasCensus() || !Load(0)) return nullptr;
    row = 0;
    return page.empty() ? nullptr : Stand(0);
  }
  CEmailEntry* Last() override {
    if (page.empty() || !HasCensus() || !Load(boundaries.count() - 1)) return nullptr;
    return page.empty() ? nullptr : Stand(Count() - 1);
  }
  CEmailEntry* Next() override {
    if (page.empty() || !HasCensus()) return nullptr;
    if (++cursor < Count()) return Held();
    if (++row < boundaries.count()) return Load(row) ? Stand(0) : nullptr;
    row = boundaries.count();
    cursor = 0;
    return nullptr;
  }
  CEmailEntry* Prev() override {
    if (page.empty()) return nullptr;
    if (--cursor >= 0) return Held();
    cursor = 0;
    if (--row >= 0) return Load(row) && !page.empty() ? Stand(Count() - 1) : nullptr;
    row = 0;
    return nullptr;
  }
  CEmailEntry* GetAt(std::int32_t index) override {
    std::uint32_t size = 0;
    if (page.empty() || BookSize(&size) != kNoError || index < 0) return nullptr;
    if (static_cast<std::uint32_t>(index) >= size || !HasCensus()) return nullptr;
    char letter = '\0';
    const std::int32_t start = LetterOfIndex(index + 1, &letter);
    if (start < 0) return nullptr;
    const std::int32_t found = RowOfLetter(letter);
    cursor = index - start;
    if (!Load(found)) return nullptr;
    if (page.empty()) return Stand(0);
    row = found;
    return Held();
  }
  // Nothing is ever removed; what can be seen is the search and the steps through its name.
  Status Remove(CEmailEntry* entry, std::int32_t /*flag*/) override {
    if (page.empty()) return kNoError;
    const CEmailEntry* found = Find(entry->name.View(), 1);
    while (found != nullptr) found = FindNext(1);
    return kRefused;
  }
  CEmailEntry* Find(std::string_view key, std::int32_t flag) override {
    if (flag == 1) Reset();
    return Seek(key, 1);
  }
  CEmailEntry* FindLetter(char letter) override {
    if (!HasCensus() || RowOfLetter(letter) < 0) return nullptr;
    row = RowOfLetter(letter);
    return Load(row) && !page.empty() ? Stand(0) : nullptr;
  }
  CEmailEntry* FindPrefix(std::string_view key) override { return Seek(key, 0); }
  Status Modify(CEmailEntry* entry, std::int32_t flag) override {
    if (page.empty()) return kNoError;
    const Status status = flag == 1 ? book->ModifyEntry(entry) : kNoError;
    CEmailEntry* found = At(page, Locate(page, entry->name.View(), 1));
    if (status == kNoError && found != nullptr) found->flags = 0;
    return status;
  }
  Status ModifyByKey(std::string_view key, CEmailEntry* entry, std::int32_t flag) override {
    if (page.empty()) return kNoError;
    const Status status = flag == 1 ? book->RenameEntry(key, entry) : kNoError;
    CEmailEntry* found = At(page, Locate(page, entry->name.View(), 1));
    if (status == kNoError && found != nullptr) found->SetName(key);
    return status;
  }
  void Reset() override { page.clear(); }

 private:
  bool HasCensus() { return LoadBoundaries(0) == kNoError; }
  std::int32_t Count() const { return static_cast<std::int32_t>(page.size()); }
  CEmailEntry* Stand(std::int32_t index) { return At(page, cursor = index); }
  bool Load(std::int32_t at) {
    const PageBoundary* boundary = boundaries.At(at);
    return boundary != nullptr && Fill(boundary->letter, boundary->count);
  }
  bool Fill(char letter, std::int32_t capacity) {
    Read read = ReadRun("", LetterFilter(letter), 0, capacity, 1);
    page = std::move(read.entries);
    return read.IsGood();
  }
  CEmailEntry* Seek(std::string_view key, std::int32_t exact) {
    if (!HasCensus()) return nullptr;
    lastSearch = key;
    const char letter = lastSearch.empty() ? '\0' : lastSearch.front();
    const bool isThere = row < boundaries.count() && boundaries.At(row)->letter == letter;
    CEmailEntry* found = isThere ? InPage(exact) : nullptr;
    if (found != nullptr) return found;
    for (std::int32_t i = 0; i < boundaries.count(); ++i) {
      const PageBoundary& each = *boundaries.At(i);
      if (static_cast<signed char>(each.letter) < static_cast<signed char>(letter)) continue;
      found = Fill(letter, each.count) ? InPage(exact) : nullptr;
      if (found != nullptr) row = i;
      break;
    }
    return found;
  }
  CEmailEntry* InPage(std::int32_t exact) {
    const std::int32_t found = Locate(page, lastSearch, exact);
    return found >= 0 ? Stand(found) : nullptr;
  }

  Entries page;
  std::int32_t row = 0;
};

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_VIEWS_MODEL_LETTER_H_
