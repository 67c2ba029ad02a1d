// The names that a range or a filter selects, and their place in the buffer. All bulk reads share
// this; the tests of the library make each of them.

#include <map>

#include "tests/simulator/server_fixture.h"
#include "tests/support/menu_item.h"

namespace quillkit {
namespace {

class ReadContractTest : public ServerTest {
 protected:
  ReadContractTest() {
    LogInAsAdministrator();
    PutKeys();
  }

  // Names that share beginnings, and hold characters at which an order or a filter may break.
  static void PutKeys() {
    for (const char* name : {"b", "\xFF\xFF", "\xFF", "\xFE", "ab", "aa", "a*", "a", "A"}) {
      const CMenuItem key = MakeItem(name);
      SimulatorPutEntry(BookKind::kTop, nullptr, nullptr, &key);
    }
  }

  // The status of a listing, and the names in the rows of its buffer and in one more at either end.
  // A row that was not written is shown as a point.
  std::string List(KeyRange* range, std::uint32_t capacity, std::int32_t direction) {
    std::vector<EntryKey> rows(capacity + 2);
    std::uint32_t count = capacity;
    std::string shown =
        std::to_string(IMSPListABEntries(&top, range, rows.data() + 1, &count, direction));
    for (const EntryKey& row : rows) {
      shown += ' ' + std::string(row.name.IsEmpty() ? "." : row.name.View());
      if (!row.name.IsEmpty()) --count;
    }
    EXPECT_EQ(count, 0U) << "the count differs from the number of rows in " << shown;
    return shown;
  }

  ABIdent top{BookKind::kTop, ""};
};

TEST_F(ReadContractTest, ListsTheNamesOfARangeInOrder) {
  struct {
    KeyRange range;  // after which name, of which filter, and how many are skipped
    std::uint32_t capacity;
    std::int32_t direction;
    const char* shown;
  } cases[] = {
      {{"", ""}, 9, 1, "0 . A a a* aa ab b \xFE \xFF \xFF\xFF ."},
      {{"", ""}, 8, 1, "21 . A a a* aa ab b \xFE \xFF ."},
      {{"", "*"}, 0, 1, "21 . ."},
      {{"", "a*"}, 5, 1, "0 . a a* aa ab . ."},
      {{"", "a*"}, 5, 0, "0 . . a a* aa ab ."},
      {{"", "a**"}, 2, 1, "0 . a* . ."},
      {{"", "aaa*"}, 1, 0, "4 . . ."},
      {{"", "\xFF*"}, 2, 1, "0 . \xFF \xFF\xFF ."},
      {{"aa", ""}, 2, 0, "21 . a a* ."},
      {{"aaa", "a*"}, 3, 1, "0 . ab . . ."},
      {{"aaa", "a*"}, 3, 0, "0 . a a* aa ."},
      {{"b", "a*"}, 3, 1, "4 . . . . ."},
      {{"", "a*", 2}, 3, 1, "0 . aa ab . ."},
      {{"", "a*", 1}, 2, 0, "21 . a* aa ."},
      {{"a*", "a*", -2}, 3, 1, "0 . aa ab . ."},
      {{"", "a*", 4}, 1, 1, "4 . . ."},
  };
  for (auto& [range, capacity, direction, shown] : cases) {
    EXPECT_EQ(List(&range, capacity, direction), shown)
        << "after '" << range.first.View() << "', filter '" << range.filter.View() << "'";
  }
  EXPECT_EQ(List(nullptr, 2, 1), "21 . A a .");
  KeyRange unterminated;
  FillUp(unterminated.first, 'a');
  EXPECT_EQ(List(&unterminated, 1, 1), "21 . ab .");
}

TEST_F(ReadContractTest, CountsAndClearsTheNamesThatMatchAFilter) {
  const std::string tooLong(32, 'a');
  const std::map<std::string, std::int32_t> matches = {
      {"", 9},      {"*", 9},     {"a", 1},    {"a*", 4},    {"a**", 1},        {"c*", 0},
      {"\xFE*", 1}, {"\xFF*", 2}, {"\xFF", 1}, {tooLong, 0}, {tooLong + '*', 0}};
  for (const auto& [filter, expected] : matches) {
    SCOPED_TRACE(filter);
    PutKeys();
    std::uint32_t count = 99;
    EXPECT_EQ(IMSPSizeofAB(&top, filter.c_str(), &count), kNoError);
    EXPECT_EQ(std::int64_t{count}, expected);
    EXPECT_EQ(IMSPClearAB(&top, filter.c_str()), kNoError);
    EXPECT_EQ(Size(BookKind::kTop), 9 - expected);
  }
}

TEST_F(ReadContractTest, CountsTheNamesOfEachFirstByteUntilTheTableIsFull) {
  PageBoundary table[5];
  std::uint32_t count = 5;
  EXPECT_EQ(IMSPReadPageBoundaries(&top, table, &count), kNoError);
  EXPECT_EQ(count, 5U);
  std::string counts;
  for (const PageBoundary& each : table) counts += each.letter + std::to_string(each.count) + ' ';
  EXPECT_EQ(counts,
            "A1 a4 b1 \xFE"
            "1 \xFF"
            "2 ");
  EXPECT_EQ(IMSPReadPageBoundaries(&top, table, &(count = 4)), kMoreData);
  EXPECT_EQ(count, 4U);
}

}  // namespace
}  // namespace quillkit
