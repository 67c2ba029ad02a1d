// Plain models of the three views, each a small state over a ModelBook. They answer as the views
// do, and State() tells the position and what is held.

#ifndef QUILLKIT_TESTS_VIEWS_MODEL_VIEWS_H_
#define QUILLKIT_TESTS_VIEWS_MODEL_VIEWS_H_

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tests/views/model_book.h"

namespace quillkit {

// What is held, in the form in which models and views are compared.
std::string Shown(const CEmailEntry* first, std::int32_t count);

class ModelView {
 public:
  explicit ModelView(ModelBook* newBook) : book(newBook) {}
  virtual ~ModelView() = default;
  ModelView(const ModelView&) = delete;
  ModelView& operator=(const ModelView&) = delete;

  virtual int Open() { return 1; }
  virtual std::string State() const = 0;

  virtual const CEmailEntry* First() = 0;
  virtual const CEmailEntry* Last() = 0;
  virtual const CEmailEntry* Next() = 0;
  virtual const CEmailEntry* Prev() = 0;
  virtual const CEmailEntry* GetAt(std::int32_t index) = 0;
  virtual Status Add(const CEmailEntry&, std::int32_t) { return -1; }
  virtual Status Remove(const CEmailEntry& entry, std::int32_t flag) = 0;
  virtual std::int32_t RemoveAt(std::int32_t) { return -1; }
  virtual const CEmailEntry* Find(std::string_view key, std::int32_t flag) = 0;
  virtual const CEmailEntry* FindLetter(char letter) = 0;
  virtual const CEmailEntry* FindNext(std::int32_t exact) { return IfMatches(Next(), exact); }
  virtual const CEmailEntry* FindPrev(std::int32_t exact) { return IfMatches(Prev(), exact); }
  virtual const CEmailEntry* FindPrefix(std::string_view key) = 0;
  virtual const CEmailEntry* FindNextPrefix() { return FindNext(0); }
  virtual Status Modify(const CEmailEntry& entry, std::int32_t flag) = 0;
  virtual Status ModifyByKey(std::string_view key, const CEmailEntry& entry, std::int32_t flag) = 0;
  virtual std::int32_t AddLocal(const CEmailEntry&) { return 0; }
  virtual std::int32_t ModifyLocal(const CEmailEntry&) { return 1; }
  virtual std::int32_t ModifyLocalByKey(std::string_view, const CEmailEntry&) { return 1; }
  virtual std::int32_t RemoveLocal(const CEmailEntry&) { return 1; }
  virtual void Reset() {}
  virtual std::int32_t SetPageSize(std::int32_t) { return 0; }

  char FirstLetter();
  char NextLetter(char letter);
  std::int32_t LetterStart(char letter);
  std::int32_t LetterOfIndex(std::int32_t index, char* letter);

 protected:
  static bool IsGood(Status status);
  static std::string LetterText(char letter);

  const CEmailEntry* IfMatches(const CEmailEntry* entry, std::int32_t exact) const;

  // The census, read once: false unless that gave 0.
  bool HaveCensus() { return LoadCensus() == kNoError; }
  Status LoadCensus();

  // The row that holds the entry at an index, and how many entries stand before it.
  int RowOf(std::int32_t index, std::int32_t* before) const;

  // Of an ordered page: the index of a match, or -1 below the page or missing in it, or -2 beyond.
  static int Locate(const Entries& page, std::string_view key, std::int32_t exact);

  ModelBook* book;
  std::optional<std::vector<ModelBook::Letter>> census;
  std::string sought;
};

class ModelSliding : public ModelView {
 public:
  ModelSliding(ModelBook* newBook, std::int32_t pageSize) : ModelView(newBook), size(pageSize) {}

  std::string State() const override;
  const CEmailEntry* First() override;
  const CEmailEntry* Last() override;
  const CEmailEntry* Next() override;
  const CEmailEntry* Prev() override;
  const CEmailEntry* GetAt(std::int32_t index) override;
  Status Remove(const CEmailEntry& entry, std::int32_t flag) override;
  const CEmailEntry* Find(std::string_view key, std::int32_t flag) override;
  const CEmailEntry* FindLetter(char letter) override;
  const CEmailEntry* FindPrefix(std::string_view key) override { return Seek(key, 0); }
  Status Modify(const CEmailEntry& entry, std::int32_t flag) override;
  Status ModifyByKey(std::string_view key, const CEmailEntry& entry, std::int32_t flag) override;
  void Reset() override { low.clear(), mid.clear(), high.clear(); }
  std::int32_t SetPageSize(std::int32_t newSize) override;

 private:
  CEmailEntry* Stand(Entries* page, std::int32_t newIndex);
  CEmailEntry* StandLast(Entries* page);
  bool LoadUp(std::string key, std::string filter);
  bool LoadDown(std::string key);
  bool LoadAround(std::string key, bool* endsAtKey);
  CEmailEntry* Seek(std::string_view key, std::int32_t exact);
  CEmailEntry* Search(std::string_view key, std::int32_t exact);

  std::int32_t size;
  Entries low, mid, high;
  Entries* current = nullptr;
  std::int32_t index = 0;
};

class ModelLetter : public ModelView {
 public:
  using ModelView::ModelView;

  std::string State() const override;
  const CEmailEntry* First() override;
  const CEmailEntry* Last() override;
  const CEmailEntry* Next() override;
  const CEmailEntry* Prev() override;
  const CEmailEntry* GetAt(std::int32_t index) override;
  Status Remove(const CEmailEntry& entry, std::int32_t flag) override;
  const CEmailEntry* Find(std::string_view key, std::int32_t flag) override;
  const CEmailEntry* FindLetter(char letter) override;
  const CEmailEntry* FindPrefix(std::string_view key) override { return Seek(key, 0); }
  Status Modify(const CEmailEntry& entry, std::int32_t flag) override;
  Status ModifyByKey(std::string_view key, const CEmailEntry& entry, std::int32_t flag) override;
  void Reset() override { page.clear(); }

 private:
  bool Load(int atRow);
  bool Fill(char letter, std::int32_t capacity);
  const CEmailEntry* Seek(std::string_view key, std::int32_t exact);

  Entries page;
  int row = 0;
  std::int32_t cursor = 0;
};

class ModelFull : public ModelView {
 public:
  using ModelView::ModelView;

  int Open() override;
  std::string State() const override;
  const CEmailEntry* First() override;
  const CEmailEntry* Last() override { return At(Count() - 1); }
  const CEmailEntry* Next() override;
  const CEmailEntry* Prev() override;
  const CEmailEntry* GetAt(std::int32_t index) override { return At(index); }
  Status Add(const CEmailEntry& entry, std::int32_t reload) override;
  Status Remove(const CEmailEntry& entry, std::int32_t reload) override;
  std::int32_t RemoveAt(std::int32_t index) override;
  const CEmailEntry* Find(std::string_view key, std::int32_t exact) override;
  const CEmailEntry* FindLetter(char letter) override;
  const CEmailEntry* FindNext(std::int32_t) override { return nullptr; }
  const CEmailEntry* FindPrev(std::int32_t) override { return nullptr; }
  const CEmailEntry* FindPrefix(std::string_view key) override { return Find(key, 0); }
  Status Modify(const CEmailEntry& entry, std::int32_t reload) override;
  Status ModifyByKey(std::string_view key, const CEmailEntry& entry, std::int32_t reload) override;
  std::int32_t AddLocal(const CEmailEntry& entry) override;
  std::int32_t ModifyLocal(const CEmailEntry& entry) override;
  std::int32_t ModifyLocalByKey(std::string_view key, const CEmailEntry& entry) override;
  std::int32_t RemoveLocal(const CEmailEntry& entry) override;

 private:
  std::int32_t Count() const { return static_cast<std::int32_t>(held.size()); }
  const CEmailEntry* At(std::int32_t index) const;
  std::int32_t IndexOf(std::string_view name, std::int32_t exact) const;
  Status Load();
  Status Then(Status changed, std::int32_t reload) {
    return changed == 0 && reload != 0 ? Load() : changed;
  }
  Status CreateInBook(const CEmailEntry& entry);

  Entries held;
  std::int32_t cursor = 0;
};

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_VIEWS_MODEL_VIEWS_H_
