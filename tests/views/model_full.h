// The model of the full view.

#ifndef QUILLKIT_TESTS_VIEWS_MODEL_FULL_H_
#define QUILLKIT_TESTS_VIEWS_MODEL_FULL_H_

#include "tests/views/model_view.h"

namespace quillkit {

class ModelFull : public ModelView {
 public:
  ModelFull() : ModelView(0) {}

  std::string State() const { return "cursor " + std::to_string(cursor) + " " + Shown(entries); }
  CEmailEntry* Held() { return GetAt(cursor); }

  int AttachBook(EntrySource* newBook) override {
    CEntryView::AttachBook(newBook);
    const Status status = Load();
    return status == 0 || status == 4 ? 1 : 0;
  }
  CEmailEntry* First() override { return entries.empty() ? nullptr : GetAt(cursor = 0); }
  CEmailEntry* Last() override { return GetAt(Count() - 1); }
  CEmailEntry* Next() override { return cursor + 1 < Count() ? GetAt(++cursor) : nullptr; }
  CEmailEntry* Prev() override {
    return !entries.empty() && cursor > 0 ? GetAt(--cursor) : nullptr;
  }
  CEmailEntry* GetAt(std::int32_t index) override { return At(entries, index); }
  Status Add(CEmailEntry* entry, std::int32_t reload) override {
    return Count() >= 512 ? kRefused : Then(book->AddEntry(entry), reload);
  }
  Status Remove(CEmailEntry* entry, std::int32_t reload) override {
    return Then(book->DeleteEntry(entry), reload);
  }
  std::int32_t RemoveAt(std::int32_t index) override {
    if (GetAt(index) == nullptr) return -1;
    entries.erase(entries.begin() + index);
    return Count();
  }
  CEmailEntry* Find(std::string_view key, std::int32_t exact) override {
    cursor = -1;
    CEmailEntry* nearest = FindLetter(key.empty() ? '\0' : key.front());
    const std::int32_t found = IndexOf(entries, key, exact != 0 ? 1 : 0);
    return found >= 0 ? GetAt(cursor = found) : nearest;
  }
  CEmailEntry* FindLetter(char letter) override {
    for (std::int32_t i = 0; i < Count(); ++i) {
      if (GetAt(i)->Name()[0] == letter) return GetAt(cursor = i);
    }
    return Last();
  }
  CEmailEntry* FindNext(std::int32_t /*exact*/) override { return nullptr; }
  CEmailEntry* FindPrev(std::int32_t /*exact*/) override { return nullptr; }
  CEmailEntry* FindPrefix(std::string_view key) override { return Find(key, 0); }
  Status Modify(CEmailEntry* entry, std::int32_t reload) override {
    return Then(book->ModifyEntry(entry), reload);
  }
  Status ModifyByKey(std::string_view key, CEmailEntry* entry, std::int32_t reload) override {
    return Then(book->RenameEntry(key, entry), reload);
  }
  std::int32_t AddLocal(CEmailEntry* entry) override {
    if (Add(entry, 0) != kNoError) return -1;
    entries.push_back(*entry);
    return Count();
  }
  std::int32_t ModifyLocal(CEmailEntry* entry) override {
    return ModifyLocalByKey(entry->name.View(), entry);
  }
  std::int32_t ModifyLocalByKey(std::string_view key, CEmailEntry* entry) override {
    if (book->RenameEntry(key, entry) != kNoError) return 0;
    CEmailEntry* held = GetAt(IndexOf(entries, key, 1));
    if (held != nullptr) *held = *entry;
    return held != nullptr ? 1 : 0;
  }
  std::int32_t RemoveLocal(CEmailEntry* entry) override {
    if (book->DeleteEntry(entry) != kNoError) return -1;
    return RemoveAt(IndexOf(entries, entry->name.View(), 1));
  }

 private:
  std::int32_t Count() const { return static_cast<std::int32_t>(entries.size()); }
  Status Load() {
    cursor = 0;
    Read read = ReadRun("", "", 0, 512, 1);
    entries = std::move(read.entries);
    return read.status;
  }
  Status Then(Status changed, std::int32_t reload) {
    return changed == kNoError && reload != 0 ? Load() : changed;
  }

  Entries entries;
};

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_VIEWS_MODEL_FULL_H_
