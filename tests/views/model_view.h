// Plain models of the three views, over entries in vectors. They answer as the views do, with the
// same calls. Of the views they take the census alone, which has examples of its own. This is what
// they share.

#ifndef QUILLKIT_TESTS_VIEWS_MODEL_VIEW_H_
#define QUILLKIT_TESTS_VIEWS_MODEL_VIEW_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "views/entry_view.h"

namespace quillkit {

using Entries = std::vector<CEmailEntry>;

// What is held, in the form in which models and views are compared.
inline std::string Shown(const CEmailEntry* first, std::int32_t count) {
  std::string text = std::to_string(count) + "(";
  for (std::int32_t i = 0; i < count; ++i) {
    text.append(first[i].Name()).append("=").append(first[i].Address()).append(":");
    text.append(std::to_string(first[i].flags)).append(" ");
  }
  return text + ")";
}
inline std::string Shown(const Entries& entries) {
  return Shown(entries.data(), static_cast<std::int32_t>(entries.size()));
}

// A model's State() tells the position and what is held; Held() is the entry at the position.
class ModelView : public CEntryView {
 public:
  using CEntryView::CEntryView;

  Status Add(CEmailEntry* /*entry*/, std::int32_t /*reload*/) override { return kRefused; }
  std::int32_t RemoveAt(std::int32_t /*index*/) override { return -1; }
  CEmailEntry* FindNext(std::int32_t exact) override { return IfSought(Next(), exact); }
  CEmailEntry* FindPrev(std::int32_t exact) override { return IfSought(Prev(), exact); }
  CEmailEntry* FindNextPrefix() override { return FindNext(0); }

 protected:
  struct Read {
    bool IsGood() const { return ModelView::IsGood(status); }

    Status status = kNoError;
    Entries entries;
  };

  static bool IsGood(Status status) { return status == 0 || status == 4 || status == 21; }

  static bool Matches(const CEmailEntry& entry, std::string_view key, std::int32_t exact) {
    const std::string_view name = entry.name.View();
    return exact == 1 ? name == key : name.substr(0, key.size()) == key;
  }
  CEmailEntry* IfSought(CEmailEntry* entry, std::int32_t exact) const {
    return entry != nullptr && Matches(*entry, lastSearch, exact) ? entry : nullptr;
  }

  // The entry of a page, or null.
  static CEmailEntry* At(Entries& page, std::int32_t index) {
    return index >= 0 && index < std::ssize(page) ? &page[static_cast<std::size_t>(index)]
                                                  : nullptr;
  }

  // The index of the first match, or -1.
  static std::int32_t IndexOf(const Entries& page, std::string_view key, std::int32_t exact) {
    for (std::size_t i = 0; i < page.size(); ++i) {
      if (Matches(page[i], key, exact)) return static_cast<std::int32_t>(i);
    }
    return -1;
  }

  // The same of a page in order, but that a match at its end goes before one inside; -2 beyond it.
  static std::int32_t Locate(const Entries& page, std::string_view key, std::int32_t exact) {
    if (page.empty()) return -2;
    if (Matches(page.front(), key, exact)) return 0;
    if (page.front().name.View() > key) return -1;
    if (Matches(page.back(), key, exact)) return static_cast<std::int32_t>(page.size()) - 1;
    return page.back().name.View() < key ? -2 : IndexOf(page, key, exact);
  }

  // One read of the book. A capacity that is not above 0 is refused.
  Read ReadRun(std::string_view first, std::string_view filter, std::int32_t skip,
               std::int32_t capacity, std::int32_t direction) const {
    if (capacity <= 0) return {kRefused, {}};
    KeyRange range(first, filter, skip);
    Read read{kNoError, Entries(static_cast<std::size_t>(capacity))};
    auto count = static_cast<std::uint32_t>(capacity);
    read.status = book->ReadEntries(&range, read.entries.data(), &count, direction);
    const auto surplus = capacity - static_cast<std::int32_t>(count);
    const auto from = direction == 1 ? read.entries.end() - surplus : read.entries.begin();
    read.entries.erase(from, from + surplus);
    return read;
  }
};

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_VIEWS_MODEL_VIEW_H_
