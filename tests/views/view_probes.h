// The three views with their state laid open, in the form in which the models tell theirs.

#ifndef QUILLKIT_TESTS_VIEWS_VIEW_PROBES_H_
#define QUILLKIT_TESTS_VIEWS_VIEW_PROBES_H_

#include <string>

#include "tests/views/model_view.h"
#include "views/full_entry_view.h"
#include "views/letter_entry_view.h"
#include "views/sliding_entry_view.h"

namespace quillkit {

inline std::string Shown(const CEntryPage& page) {
  return Shown(page.At(0), page.Count());
}

class SlidingProbe : public CSlidingEntryView {
 public:
  using CSlidingEntryView::CSlidingEntryView;

  std::string State() const {
    const char* name = currentPage == &lowPage    ? "low"
                       : currentPage == &midPage  ? "mid"
                       : currentPage == &highPage ? "high"
                                                  : "-";
    return std::string(name) + " " + std::to_string(currentIndex) + " " + Shown(lowPage) + " " +
           Shown(midPage) + " " + Shown(highPage);
  }

  // The entry at the position, or null.
  CEmailEntry* Held() { return currentPage != nullptr ? currentPage->At(currentIndex) : nullptr; }
};

class LetterProbe : public CLetterEntryView {
 public:
  std::string State() const {
    return "row " + std::to_string(letterIndex) + " cursor " + std::to_string(cursor) + " " +
           Shown(page);
  }
  CEmailEntry* Held() { return page.At(cursor); }
};

class FullProbe : public CFullEntryView {
 public:
  std::string State() const {
    return "cursor " + std::to_string(cursor) + " " + Shown(entries.data(), entries.count());
  }
  CEmailEntry* Held() { return entries.At(cursor); }
};

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_VIEWS_VIEW_PROBES_H_
