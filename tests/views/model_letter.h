// The model of the letter view.

#ifndef QUILLKIT_TESTS_VIEWS_MODEL_LETTER_H_
#define QUILLKIT_TESTS_VIEWS_MODEL_LETTER_H_

#include "tests/views/model_view.h"

namespace quillkit {

class ModelLetter : public ModelView {
 public:
  using ModelView::ModelView;

  std::string State() const override {
    return "row " + std::to_string(row) + " cursor " + std::to_string(cursor) + " " + Shown(page);
  }
  const CEmailEntry* First() override {
    if (!HaveCensus() || !Load(0)) return nullptr;
    row = 0;
    return page.empty() ? nullptr : Stand(0);
  }
  const CEmailEntry* Last() override {
    if (page.empty() || !HaveCensus() || !Load(Rows() - 1) || page.empty()) return nullptr;
    return Stand(Count() - 1);
  }
  const CEmailEntry* Next() override {
    if (page.empty() || !HaveCensus()) return nullptr;
    if (++cursor < Count()) return At(page, cursor);
    if (++row < Rows()) return Load(row) ? Stand(0) : nullptr;
    row = Rows();
    cursor = 0;
    return nullptr;
  }
  const CEmailEntry* Prev() override {
    if (page.empty()) return nullptr;
    if (--cursor >= 0) return At(page, cursor);
    cursor = 0;
    if (--row >= 0) return Load(row) && !page.empty() ? Stand(Count() - 1) : nullptr;
    row = 0;
    return nullptr;
  }
  const CEmailEntry* GetAt(std::int32_t at) override {
    std::uint32_t count = 0;
    if (page.empty() || book->Size(&count) != 0) return nullptr;
    if (at < 0 || static_cast<std::uint32_t>(at) >= count || !HaveCensus()) return nullptr;
    std::int32_t before = 0;
    const int atRow = RowOf(at, &before);
    if (atRow < 0) return nullptr;
    cursor = at - before;
    if (!Load(atRow)) return nullptr;
    if (page.empty()) return Stand(0);
    row = atRow;
    return At(page, cursor);
  }
  // Nothing is ever removed; what can be seen is the search and the steps through its name.
  Status Remove(const CEmailEntry& entry, std::int32_t) override {
    if (page.empty()) return 0;
    if (Find(entry.name.View(), 1) == nullptr) return -1;
    while (FindNext(1) != nullptr) {
    }
    return -1;
  }
  const CEmailEntry* Find(std::string_view key, std::int32_t flag) override {
    if (flag == 1) Reset();
    return Seek(key, 1);
  }
  const CEmailEntry* FindLetter(char letter) override {
    if (!HaveCensus()) return nullptr;
    for (int i = 0; i < Rows(); ++i) {
      if (Row(i).letter != letter) continue;
      row = i;
      return Load(i) && !page.empty() ? Stand(0) : nullptr;
    }
    return nullptr;
  }
  const CEmailEntry* FindPrefix(std::string_view key) override { return Seek(key, 0); }
  Status Modify(const CEmailEntry& entry, std::int32_t flag) override {
    if (page.empty()) return 0;
    const Status status = ModifyIf(flag, entry.name.View(), entry);
    CEmailEntry* found = At(page, Locate(page, entry.name.View(), 1));
    if (status == 0 && found != nullptr) found->flags = 0;
    return status;
  }
  Status ModifyByKey(std::string_view key, const CEmailEntry& entry, std::int32_t flag) override {
    if (page.empty()) return 0;
    const Status status = ModifyIf(flag, key, entry);
    CEmailEntry* found = At(page, Locate(page, entry.name.View(), 1));
    if (status == 0 && found != nullptr) found->SetName(key);
    return status;
  }
  void Reset() override { page.clear(); }

 private:
  std::int32_t Count() const { return static_cast<std::int32_t>(page.size()); }
  int Rows() const { return static_cast<int>(census->size()); }
  const ModelBook::Letter& Row(int at) const { return census->at(static_cast<std::size_t>(at)); }
  const CEmailEntry* Stand(std::int32_t index) { return At(page, cursor = index); }
  bool Load(int at) { return at >= 0 && at < Rows() && Fill(Row(at).letter, Row(at).count); }
  bool Fill(char letter, std::int32_t capacity) {
    const auto read = book->ReadOn("", LetterText(letter), capacity);
    page = read.entries;
    return IsGood(read.status);
  }
  const CEmailEntry* Seek(std::string_view key, std::int32_t exact) {
    if (!HaveCensus()) return nullptr;
    sought = key;
    const char letter = sought.empty() ? '\0' : sought.front();
    if (row < Rows() && Row(row).letter == letter) {
      if (const CEmailEntry* found = InPage(exact)) return found;
    }
    for (int i = 0; i < Rows(); ++i) {
      if (static_cast<signed char>(Row(i).letter) < static_cast<signed char>(letter)) continue;
      const CEmailEntry* found = Fill(letter, Row(i).count) ? InPage(exact) : nullptr;
      if (found != nullptr) row = i;
      return found;
    }
    return nullptr;
  }
  const CEmailEntry* InPage(std::int32_t exact) {
    const int found = Locate(page, sought, exact);
    return found >= 0 ? Stand(found) : nullptr;
  }

  Entries page;
  int row = 0;
  std::int32_t cursor = 0;
};

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_VIEWS_MODEL_LETTER_H_
