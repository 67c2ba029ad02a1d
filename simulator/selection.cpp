#include "simulator/selection.h"

#include <string>

namespace quillbox {
namespace {

bool IsBeginning(std::string_view filter) {
  return filter.empty() || filter.back() == '*';
}

}  // namespace

NameFilter::NameFilter(std::string_view text)
    : NameFilter(IsBeginning(text) ? text.substr(0, text.empty() ? 0 : text.size() - 1) : text,
                 !IsBeginning(text)) {}

NameFilter NameFilter::Beginning(std::string_view text) {
  return {text, false};
}

NameFilter::NameFilter(std::string_view text, bool isWhole)
    : from(text), isName(isWhole), matchesNone(text.size() > FixedText<32>::kMaxLength) {
  // The lowest text above all that begin with this one: increments the last byte below 0xFF.
  while (!text.empty() && text.back() == '\xFF') text.remove_suffix(1);
  if (text.empty()) return;
  std::string above(text);
  above.back() = static_cast<char>(above.back() + 1);
  to = EntryKey(above);
  hasEnd = true;
}

Delivery Deliver(IndexRun matches, std::int32_t skip, std::size_t capacity,
                 std::int32_t direction) {
  const std::size_t passed =
      std::min(matches.Size(), static_cast<std::size_t>(std::max(skip, std::int32_t{0})));
  const std::size_t left = matches.Size() - passed;
  const std::size_t count = std::min(left, capacity);
  const Status status = left == 0 ? kDataNotFound : left > capacity ? kMoreData : kNoError;
  if (direction == 1) return {matches.begin + passed, count, 0, status};
  return {matches.end - passed - count, count, capacity - count, status};
}

}  // namespace quillbox
