#include "quillctl/suggestion.h"

#include <algorithm>
#include <numeric>

namespace quillctl {
namespace {

// Returns the Levenshtein distance.
std::size_t Distance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> row(b.size() + 1);  // the distances of a prefix of `a` to those of `b`
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (const char c : a) {
    std::size_t diagonal = row[0]++;
    for (std::size_t j = 0; j < b.size(); ++j) {
      const std::size_t replaced = diagonal + (c == b[j] ? 0 : 1);
      diagonal = row[j + 1];
      row[j + 1] = std::min({replaced, diagonal + 1, row[j] + 1});
    }
  }
  return row.back();
}

}  // namespace

std::string Nearest(std::string_view word, const std::vector<std::string>& candidates) {
  std::string nearest;
  for (const std::string& each : candidates) {
    if (word.size() > 2 && each.starts_with(word)) return each;
  }
  std::size_t least = (word.size() + 2) / 3 + 1;
  for (const std::string& each : candidates) {
    const std::size_t distance = Distance(word, each);
    if (distance >= least) continue;
    least = distance;
    nearest = each;
  }
  return nearest;
}

}  // namespace quillctl
