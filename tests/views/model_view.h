// Plain models of the three views, each a small state over a ModelBook. They answer as the views
// do, and State() tells the position and what is held. This is what they share.

#ifndef QUILLKIT_TESTS_VIEWS_MODEL_VIEW_H_
#define QUILLKIT_TESTS_VIEWS_MODEL_VIEW_H_

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tests/views/model_book.h"

namespace quillkit {

// What is held, in the form in which models and views are compared.
inline std::string Shown(const CEmailEntry* first, std::int32_t count) {
  std::string text = std::to_string(count) + "(";
  for (std::int32_t i = 0; i < count; ++i) {
    text += std::string(first[i].Name()) + "=" + first[i].Address() + ":" +
            std::to_string(first[i].flags) + " ";
  }
  return text + ")";
}
inline std::string Shown(const Entries& entries) {
  return Shown(entries.data(), static_cast<std::int32_t>(entries.size()));
}

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

  char FirstLetter() {
    LoadCensus();
    return census && !census->empty() ? census->front().letter : '\0';
  }
  char NextLetter(char letter) {
    LoadCensus();
    if (!census || census->empty()) return '\0';
    for (std::size_t i = 0; i + 1 < census->size(); ++i) {
      if (census->at(i).letter == letter) return census->at(i + 1).letter;
    }
    return census->back().letter;
  }
  std::int32_t LetterStart(char letter) {
    LoadCensus();
    std::int32_t sum = 0;
    for (const auto& each : census.value_or(std::vector<ModelBook::Letter>())) {
      if (each.letter == letter) return sum;
      sum += each.count;
    }
    return -1;
  }
  std::int32_t LetterOfIndex(std::int32_t index, char* letter) {
    LoadCensus();
    std::int32_t sum = 0;
    const int row = census ? RowOf(index - 1, &sum) : -1;
    if (row < 0) return -1;
    *letter = census->at(static_cast<std::size_t>(row)).letter;
    return sum;
  }

 protected:
  static bool IsGood(Status status) { return status == 0 || status == 4 || status == 21; }
  static std::string LetterText(char letter) { return {letter, '*'}; }

  const CEmailEntry* IfMatches(const CEmailEntry* entry, std::int32_t exact) const {
    return entry != nullptr && ModelMatches(*entry, sought, exact) ? entry : nullptr;
  }

  // The census, read once: false unless that gave 0.
  bool HaveCensus() { return LoadCensus() == kNoError; }
  Status LoadCensus() {
    if (census) return kNoError;
    const ModelBook::Census read = book->ReadCensus();
    if (read.status == 0 || read.status == 21) census = read.letters;
    return read.status;
  }

  // The row that holds the entry at an index, and how many entries stand before it.
  int RowOf(std::int32_t index, std::int32_t* before) const {
    *before = 0;
    for (std::size_t i = 0; i < census->size(); ++i) {
      if (*before + census->at(i).count > index) return static_cast<int>(i);
      *before += census->at(i).count;
    }
    return -1;
  }

  // The entry of a page, or null.
  static CEmailEntry* At(Entries& page, std::int32_t index) {
    return index >= 0 && index < std::ssize(page) ? &page[static_cast<std::size_t>(index)]
                                                  : nullptr;
  }

  // Of an ordered page: the index of a match, or -1 below the page or missing in it, or -2 beyond.
  static int Locate(const Entries& page, std::string_view key, std::int32_t exact) {
    if (page.empty()) return -2;
    if (ModelMatches(page.front(), key, exact)) return 0;
    if (page.front().name.View() > key) return -1;
    if (ModelMatches(page.back(), key, exact)) return static_cast<int>(page.size()) - 1;
    if (page.back().name.View() < key) return -2;
    for (std::size_t i = 0; i < page.size(); ++i) {
      if (ModelMatches(page[i], key, exact)) return static_cast<int>(i);
    }
    return -1;
  }

  // What a change on the server gives where it is asked for.
  Status ModifyIf(std::int32_t flag, std::string_view key, const CEmailEntry& entry) {
    return flag == 1 ? book->Modify(key, entry) : kNoError;
  }

  ModelBook* book;
  std::optional<std::vector<ModelBook::Letter>> census;
  std::string sought;
};

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_VIEWS_MODEL_VIEW_H_
