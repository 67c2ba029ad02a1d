// Selects the entries of a book that a call refers to. Implements filter, first key, skip and
// direction for all bulk reads, sizes and deletions.

#ifndef QUILLKIT_SIMULATOR_SELECTION_H_
#define QUILLKIT_SIMULATOR_SELECTION_H_

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "simulator/ordered.h"
#include "simulator/protocol.h"

namespace quillbox {

// Positions from `begin` to before `end`.
struct IndexRun {
  std::size_t begin = 0;
  std::size_t end = 0;

  std::size_t Size() const { return end > begin ? end - begin : 0; }
};

// A filter: all names ("" or "*"), the names that begin with a text (the text and "*"), or one
// name.
class NameFilter {
 public:
  explicit NameFilter(std::string_view text);

  // Matches the names that begin with a text, which may contain any characters.
  static NameFilter Beginning(std::string_view text);

  // The positions of the names that match, which are always consecutive.
  template <class Value>
  IndexRun Matches(const Ordered<Value>& values) const {
    if (matchesNone) return {};
    const std::size_t begin = values.CountBefore(from);
    if (isName) return {begin, values.CountThrough(from)};
    return {begin, hasEnd ? values.CountBefore(to) : values.Size()};
  }

 private:
  NameFilter(std::string_view text, bool isWhole);

  EntryKey from;  // the name, or the lowest name that matches
  EntryKey to;    // the lowest name above all that match
  bool isName = false;
  bool hasEnd = false;
  bool matchesNone = false;  // longer than any name
};

// The part that one bulk read delivers.
struct Delivery {
  std::size_t begin = 0;  // the first position delivered
  std::size_t count = 0;
  std::size_t slot = 0;  // the first slot to fill; a backward read fills the end of the buffer
  Status status = kNoError;
};

// Selects from matches, reading forward (`direction` 1) or backward (any other value): skips `skip`
// of them (none if it is negative) and selects up to `capacity`. The status is 4 if none are left,
// 21 if more are left than fit.
Delivery Deliver(IndexRun matches, std::int32_t skip, std::size_t capacity, std::int32_t direction);

// The matches of a range that follow its first key in the direction of the read. A null range means
// all.
template <class Value>
IndexRun MatchesOf(const Ordered<Value>& values, const KeyRange* range, std::int32_t direction) {
  if (range == nullptr) return {0, values.Size()};
  IndexRun run = NameFilter(range->filter.View()).Matches(values);
  if (range->first.IsEmpty()) return run;
  EntryKey first;
  first.name = range->first;  // if it has no NUL, all 32 bytes count
  if (direction == 1) {
    run.begin = std::max(run.begin, values.CountThrough(first));
  } else {
    run.end = std::min(run.end, values.CountBefore(first));
  }
  return run;
}

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_SELECTION_H_
