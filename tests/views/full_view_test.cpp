// The full view, compared with a model of it.

#include "tests/views/view_walk.h"
#include "views/full_entry_view.h"

namespace quillkit {
namespace {

class ModelFull : public ModelView {
 public:
  ModelFull() : ModelView(0) {}

  int AttachBook(EntrySource* newBook) override {
    CEntryView::AttachBook(newBook);
    const Status status = Load();
    return status == 0 || status == 4 ? 1 : 0;
  }
  CEmailEntry* First() override { return MoveIfAny(0); }
  CEmailEntry* Last() override { return At(Count() - 1); }
  CEmailEntry* Next() override { return cursor + 1 < Count() ? MoveTo(cursor + 1) : nullptr; }
  CEmailEntry* Prev() override { return cursor > 0 ? MoveIfAny(cursor - 1) : nullptr; }
  CEmailEntry* GetAt(std::int32_t index) override { return At(index); }
  CEmailEntry* Find(std::string_view key, std::int32_t exact) override {
    return Seek(key, exact != 0 ? 1 : 0);
  }
  CEmailEntry* FindLetter(char letter) override {
    const std::int32_t found = letter != '\0' ? IndexOf(held, {&letter, 1}, 0) : -1;
    return found >= 0 ? MoveTo(found) : Last();
  }
  CEmailEntry* FindNext(std::int32_t /*exact*/) override { return nullptr; }
  CEmailEntry* FindPrev(std::int32_t /*exact*/) override { return nullptr; }

  Status Add(CEmailEntry* entry, std::int32_t reload) override {
    return Count() < 512 ? Reload(book->AddEntry(entry), reload) : kRefused;
  }
  Status Remove(CEmailEntry* entry, std::int32_t reload) override {
    return Reload(book->DeleteEntry(entry), reload);
  }
  Status Modify(CEmailEntry* entry, std::int32_t reload) override {
    return Reload(book->ModifyEntry(entry), reload);
  }
  Status ModifyByKey(std::string_view key, CEmailEntry* entry, std::int32_t reload) override {
    return Reload(book->RenameEntry(key, entry), reload);
  }
  std::int32_t RemoveAt(std::int32_t index) override {
    if (At(index) == nullptr) return -1;
    held.erase(held.begin() + index);
    return Count();
  }
  std::int32_t AddLocal(CEmailEntry* entry) override {
    if (Add(entry, 0) != kNoError) return -1;
    held.push_back(*entry);
    return Count();
  }
  std::int32_t RemoveLocal(CEmailEntry* entry) override {
    return Remove(entry, 0) == kNoError ? RemoveAt(IndexOf(held, entry->Name(), 1)) : -1;
  }
  std::int32_t ModifyLocal(CEmailEntry* entry) override {
    return ModifyLocalByKey(entry->Name(), entry);
  }
  std::int32_t ModifyLocalByKey(std::string_view key, CEmailEntry* entry) override {
    const Status status = ModifyByKey(key, entry, 0);
    CEmailEntry* changed = status == kNoError ? At(IndexOf(held, key, 1)) : nullptr;
    if (changed != nullptr) *changed = *entry;
    return changed != nullptr ? 1 : 0;
  }

 private:
  CEmailEntry* Seek(std::string_view key, std::int32_t exact) override {
    cursor = -1;
    CEmailEntry* nearest = FindLetter(key.empty() ? '\0' : key.front());
    const std::int32_t found = IndexOf(held, key, exact);
    return found >= 0 ? MoveTo(found) : nearest;
  }
  Status Load() {
    cursor = 0;
    return Read(held, "", "", 512);
  }
  Status Reload(Status changed, std::int32_t reload) {
    return changed == kNoError && reload != 0 ? Load() : changed;
  }
};

TEST_F(ViewWalk, FullViewMatchesItsModel) {
  Compare<CFullEntryView, ModelFull>();
}

}  // namespace
}  // namespace quillkit
