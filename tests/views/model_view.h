// The common part of the models of the three views. A model holds entries in vectors and makes the
// same calls as its view. It uses the census of CEntryView, which has its own tests.

#ifndef QUILLKIT_TESTS_VIEWS_MODEL_VIEW_H_
#define QUILLKIT_TESTS_VIEWS_MODEL_VIEW_H_

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/email_entry.h"
#include "views/entry_view.h"

namespace quillkit {

using Entries = std::vector<CEmailEntry>;

class ModelView : public CEntryView {
 public:
  using CEntryView::CEntryView;

  Status Add(CEmailEntry* /*entry*/, std::int32_t /*reload*/) override { return kRefused; }
  std::int32_t RemoveAt(std::int32_t /*index*/) override { return -1; }
  CEmailEntry* Find(std::string_view key, std::int32_t flag) override {
    const std::string copy(key);  // the key may be inside the model
    if (flag == 1) Reset();
    return Seek(copy, 1);
  }
  CEmailEntry* FindPrefix(std::string_view key) override { return Seek(key, 0); }
  CEmailEntry* FindNext(std::int32_t exact) override { return IfMatches(Next(), exact); }
  CEmailEntry* FindPrev(std::int32_t exact) override { return IfMatches(Prev(), exact); }
  CEmailEntry* FindNextPrefix() override { return FindNext(0); }

 protected:
  virtual CEmailEntry* Seek(std::string_view key, std::int32_t exact) = 0;

  // --- The position: the cursor in `*page` ---

  std::int32_t Count() const { return static_cast<std::int32_t>(page->size()); }
  CEmailEntry* At(std::int32_t index) {
    return index >= 0 && index < Count() ? &(*page)[static_cast<std::size_t>(index)] : nullptr;
  }
  CEmailEntry* MoveTo(std::int32_t index) { return At(cursor = index); }
  CEmailEntry* MoveIfAny(std::int32_t index) { return Count() > 0 ? MoveTo(index) : nullptr; }

  // --- Search ---

  static bool Matches(const CEmailEntry& entry, std::string_view key, std::int32_t exact) {
    const std::string_view name = entry.name.View();
    return exact == 1 ? name == key : name.substr(0, key.size()) == key;
  }
  CEmailEntry* IfMatches(CEmailEntry* entry, std::int32_t exact) const {
    return entry != nullptr && Matches(*entry, lastSearch, exact) ? entry : nullptr;
  }

  // Returns the index of the first match, or -1.
  static std::int32_t IndexOf(const Entries& entries, std::string_view key, std::int32_t exact) {
    const auto found = std::ranges::find_if(
        entries, [&](const CEmailEntry& each) { return Matches(each, key, exact); });
    return found != entries.end() ? static_cast<std::int32_t>(found - entries.begin()) : -1;
  }

  // The same for sorted entries, but compares the first entry, then the last one, then the others.
  // Returns -2 if the key is after all entries, or if there are none.
  static std::int32_t Locate(const Entries& entries, std::string_view key, std::int32_t exact) {
    if (entries.empty()) return -2;
    if (Matches(entries.front(), key, exact)) return 0;
    if (entries.front().name.View() > key) return -1;
    if (Matches(entries.back(), key, exact)) return static_cast<std::int32_t>(entries.size()) - 1;
    return entries.back().name.View() < key ? -2 : IndexOf(entries, key, exact);
  }

  // --- Server ---

  // The book's two calls before and after the reads of a step.
  struct Access {
    explicit Access(EntrySource& source) : book(source) { book.BeginAccess(); }
    ~Access() { book.EndAccess(); }
    EntrySource& book;
  };

  static bool IsGood(Status status) { return status == 0 || status == 4 || status == 21; }

  bool HasIndex(std::int32_t index) const {
    std::uint32_t size = 0;
    return BookSize(&size) == kNoError && static_cast<std::uint32_t>(index) < size;
  }

  // Replaces `entries` by what one read delivers. A capacity of 0 makes no call.
  Status Read(Entries& entries, std::string_view key, std::string_view filter,
              std::int32_t capacity, std::int32_t direction = 1, std::int32_t skip = 0) const {
    entries.assign(static_cast<std::size_t>(capacity), {});
    if (capacity == 0) return kRefused;
    KeyRange range(key, filter, skip);
    auto count = static_cast<std::uint32_t>(capacity);
    const Status status = book->ReadEntries(&range, entries.data(), &count, direction);
    const auto surplus = capacity - static_cast<std::int32_t>(count);
    const auto first = direction == 1 ? entries.end() - surplus : entries.begin();
    entries.erase(first, first + surplus);
    return status;
  }

  Entries held;           // by the letter and the full view
  Entries* page = &held;  // before its first load, a sliding view is in no page
};

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_VIEWS_MODEL_VIEW_H_
