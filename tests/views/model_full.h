// The model of the full view.

#ifndef QUILLKIT_TESTS_VIEWS_MODEL_FULL_H_
#define QUILLKIT_TESTS_VIEWS_MODEL_FULL_H_

#include "tests/views/model_view.h"

namespace quillkit {

class ModelFull : public ModelView {
 public:
  using ModelView::ModelView;

  int Open() override {
    const Status status = Load();
    return status == 0 || status == 4 ? 1 : 0;
  }
  std::string State() const override {
    return "cursor " + std::to_string(cursor) + " " + Shown(held);
  }
  const CEmailEntry* First() override {
    if (held.empty()) return nullptr;
    cursor = 0;
    return At(0);
  }
  const CEmailEntry* Last() override { return At(Count() - 1); }
  const CEmailEntry* Next() override { return cursor + 1 < Count() ? At(++cursor) : nullptr; }
  const CEmailEntry* Prev() override {
    return !held.empty() && cursor - 1 >= 0 ? At(--cursor) : nullptr;
  }
  const CEmailEntry* GetAt(std::int32_t index) override { return At(index); }
  Status Add(const CEmailEntry& entry, std::int32_t reload) override {
    return Count() >= 512 ? -1 : Then(CreateInBook(entry), reload);
  }
  Status Remove(const CEmailEntry& entry, std::int32_t reload) override {
    return Then(book->Delete(entry.name.View()), reload);
  }
  std::int32_t RemoveAt(std::int32_t index) override {
    if (At(index) == nullptr) return -1;
    held.erase(held.begin() + index);
    return Count();
  }
  const CEmailEntry* Find(std::string_view key, std::int32_t exact) override {
    cursor = -1;
    const CEmailEntry* nearest = FindLetter(key.empty() ? '\0' : key.front());
    const std::int32_t found = IndexOf(key, exact != 0 ? 1 : 0);
    if (found < 0) return nearest;
    cursor = found;
    return At(found);
  }
  const CEmailEntry* FindLetter(char letter) override {
    for (std::int32_t i = 0; i < Count(); ++i) {
      if (At(i)->Name()[0] != letter) continue;
      cursor = i;
      return At(i);
    }
    return Last();
  }
  const CEmailEntry* FindNext(std::int32_t) override { return nullptr; }
  const CEmailEntry* FindPrev(std::int32_t) override { return nullptr; }
  const CEmailEntry* FindPrefix(std::string_view key) override { return Find(key, 0); }
  Status Modify(const CEmailEntry& entry, std::int32_t reload) override {
    return Then(book->Modify(entry.name.View(), entry), reload);
  }
  Status ModifyByKey(std::string_view key, const CEmailEntry& entry, std::int32_t reload) override {
    return Then(book->Modify(key, entry), reload);
  }
  std::int32_t AddLocal(const CEmailEntry& entry) override {
    if (Count() >= 512 || CreateInBook(entry) != 0) return -1;
    held.push_back(entry);
    return Count();
  }
  std::int32_t ModifyLocal(const CEmailEntry& entry) override {
    return ModifyLocalByKey(entry.name.View(), entry);
  }
  std::int32_t ModifyLocalByKey(std::string_view key, const CEmailEntry& entry) override {
    if (book->Modify(key, entry) != 0) return 0;
    const std::int32_t found = IndexOf(key, 1);
    if (found < 0) return 0;
    held[static_cast<std::size_t>(found)] = entry;
    return 1;
  }
  std::int32_t RemoveLocal(const CEmailEntry& entry) override {
    return book->Delete(entry.name.View()) == 0 ? RemoveAt(IndexOf(entry.name.View(), 1)) : -1;
  }

 private:
  std::int32_t Count() const { return static_cast<std::int32_t>(held.size()); }
  const CEmailEntry* At(std::int32_t index) { return ModelView::At(held, index); }
  std::int32_t IndexOf(std::string_view name, std::int32_t exact) {
    for (std::int32_t i = 0; i < Count(); ++i) {
      if (ModelMatches(*At(i), name, exact)) return i;
    }
    return -1;
  }
  Status Load() {
    cursor = 0;
    const auto read = book->ReadOn("", "", 512);
    held = read.entries;
    return read.status;
  }
  Status Then(Status changed, std::int32_t reload) {
    return changed == 0 && reload != 0 ? Load() : changed;
  }
  // The book's own addition asks for the size first.
  Status CreateInBook(const CEmailEntry& entry) {
    std::uint32_t count = 0;
    book->Size(&count);
    return book->Create(entry);
  }

  Entries held;
  std::int32_t cursor = 0;
};

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_VIEWS_MODEL_FULL_H_
