#include "base/name_search.h"

#include <gtest/gtest.h>

#include <string>

namespace quillkit {
namespace {

TEST(NameCursor, ContinuesWithTheLatestPatternThatHadAHit) {
  const char* const names[] = {"AB", "ABC", "X", "AB"};
  const struct {
    const char* first;  // null: FindNext
    bool wholeName;
    std::int32_t hit;
  } steps[] = {{nullptr, false, 1},  // the empty pattern, after index 0
               {"A", true, -1},      {"ab", false, -1},  {"AB", false, 0},
               {nullptr, false, 1},  {nullptr, true, 3}, {nullptr, false, -1},
               {nullptr, false, -1},  // a miss leaves the position unchanged
               {"AB", true, 0},      {nullptr, true, 3}, {"none", false, -1},
               {nullptr, false, 0}};  // a miss of FindFirst moves the search to index 0
  NameCursor cursor;
  std::string searches = "searches:";
  for (const auto& [first, wholeName, hit] : steps) {
    searches += std::string(wholeName ? " whole " : " ") + (first != nullptr ? first : "next");
    SCOPED_TRACE(searches);
    const auto nameAt = [&](std::int32_t i) { return names[i]; };
    EXPECT_EQ(first != nullptr ? cursor.FindFirst(4, first, wholeName, nameAt)
                               : cursor.FindNext(4, wholeName, nameAt),
              hit);
  }
}

}  // namespace
}  // namespace quillkit
