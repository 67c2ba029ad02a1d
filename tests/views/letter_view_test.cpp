// The letter view, compared with a model of it.

#include <algorithm>

#include "tests/views/view_walk.h"
#include "views/letter_entry_view.h"

namespace quillkit {
namespace {

class ModelLetter : public ModelView {
 public:
  ModelLetter() : ModelView(0) {}

  CEmailEntry* First() override {
    if (!HasCensus() || !Load(0)) return nullptr;
    row = 0;
    return MoveIfAny(0);
  }
  CEmailEntry* Last() override {
    if (held.empty() || !HasCensus() || !Load(boundaries.count() - 1)) return nullptr;
    return MoveIfAny(Count() - 1);
  }
  CEmailEntry* Next() override {
    if (held.empty() || !HasCensus()) return nullptr;
    if (++cursor < Count()) return At(cursor);
    row = std::min(row + 1, boundaries.count());
    if (row == boundaries.count()) cursor = 0;
    return Load(row) ? MoveTo(0) : nullptr;
  }
  CEmailEntry* Prev() override {
    if (held.empty()) return nullptr;
    if (--cursor >= 0) return At(cursor);
    cursor = 0;
    if (--row >= 0) return Load(row) ? MoveIfAny(Count() - 1) : nullptr;
    row = 0;
    return nullptr;
  }
  CEmailEntry* GetAt(std::int32_t index) override {
    if (held.empty() || !HasIndex(index) || !HasCensus()) return nullptr;
    char letter = '\0';
    const std::int32_t start = LetterOfIndex(index + 1, &letter);
    if (start < 0) return book->BeginAccess(), nullptr;  // without EndAccess
    const std::int32_t found = RowOfLetter(letter);
    cursor = index - start;
    if (!Load(found)) return nullptr;
    if (held.empty()) return MoveTo(0);
    row = found;
    return At(cursor);
  }
  CEmailEntry* FindLetter(char letter) override {
    if (!HasCensus() || RowOfLetter(letter) < 0) return nullptr;
    row = RowOfLetter(letter);
    return Load(row) ? MoveIfAny(0) : nullptr;
  }
  // Removes nothing; steps past the entries of this name.
  Status Remove(CEmailEntry* entry, std::int32_t /*flag*/) override {
    if (held.empty()) return kNoError;
    const CEmailEntry* found = Find(entry->Name(), 1);
    while (found != nullptr) found = FindNext(1);
    return kRefused;
  }
  Status Modify(CEmailEntry* entry, std::int32_t flag) override {
    const Status status = !held.empty() && flag == 1 ? book->ModifyEntry(entry) : kNoError;
    CEmailEntry* found = At(Locate(held, entry->Name(), 1));
    if (status == kNoError && found != nullptr) found->flags = 0;
    return status;
  }
  Status ModifyByKey(std::string_view key, CEmailEntry* entry, std::int32_t flag) override {
    const Status status = !held.empty() && flag == 1 ? book->RenameEntry(key, entry) : kNoError;
    CEmailEntry* found = At(Locate(held, entry->Name(), 1));
    if (status == kNoError && found != nullptr) found->SetName(key);
    return status;
  }
  void Reset() override { held.clear(); }

 private:
  bool HasCensus() { return LoadBoundaries(0) == kNoError; }
  bool Load(std::int32_t at) {
    const PageBoundary* boundary = boundaries.At(at);
    return boundary != nullptr && Load(boundary->letter, boundary->count);
  }
  bool Load(char letter, std::int32_t capacity) {
    const Access access(*book);
    return IsGood(Read(held, "", LetterFilter(letter), capacity));
  }
  CEmailEntry* Seek(std::string_view key, std::int32_t exact) override {
    if (!HasCensus()) return nullptr;
    lastSearch = key;
    const char letter = *lastSearch.c_str();
    const bool isLoaded = row < boundaries.count() && boundaries.At(row)->letter == letter;
    std::int32_t found = isLoaded ? Locate(held, lastSearch, exact) : -1;
    if (found >= 0) return MoveTo(found);
    std::int32_t next = 0;
    const auto rank = [&](char each) { return static_cast<signed char>(each); };
    while (next < boundaries.count() && rank(boundaries.At(next)->letter) < rank(letter)) ++next;
    if (next == boundaries.count() || !Load(letter, boundaries.At(next)->count)) return nullptr;
    found = Locate(held, lastSearch, exact);
    if (found < 0) return nullptr;
    row = next;
    return MoveTo(found);
  }

  std::int32_t row = 0;
};

TEST_F(ViewWalk, LetterViewMatchesItsModel) {
  Compare<CLetterEntryView, ModelLetter>();
}

}  // namespace
}  // namespace quillkit
