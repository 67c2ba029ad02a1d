// What the bulk reads deliver, against a plain model: a sorted list of names that is searched from
// end to end. Books, ranges and capacities come from fixed seeds; a failure names the seed, the
// step and the call.

#include <algorithm>
#include <random>
#include <set>
#include <tuple>
#include <utility>

#include "bridge/status.h"
#include "tests/simulator/server_fixture.h"

namespace quillkit {
namespace {

using Names = std::vector<std::string>;

bool Matches(const std::string& name, const std::string& filter) {
  if (filter.empty()) return true;
  if (filter.back() == '*') return name.starts_with(filter.substr(0, filter.size() - 1));
  return name == filter;
}

class Random {
 public:
  explicit Random(std::mt19937::result_type seed) : generator(seed) {}

  std::size_t Below(std::size_t end) { return generator() % end; }

  // Few characters, so that names share beginnings, and those at which an order or a filter may
  // break.
  std::string Name() {
    constexpr std::string_view kCharacters = "aaabbAz*~ \x7F\x80\xFE\xFF\xFF";
    const std::size_t length = Below(12) == 0 ? 31 : 1 + Below(4);
    std::string name;
    while (name.size() < length) name += kCharacters[Below(kCharacters.size())];
    return name;
  }

  // Names in their order, each once.
  Names SortedNames() {
    std::set<std::string> names;
    for (std::size_t i = Below(60); i > 0; --i) names.insert(Name());
    return {names.begin(), names.end()};
  }

  std::string Pick(const Names& names) {
    return names.empty() || Below(3) == 0 ? Name() : names[Below(names.size())];
  }

  std::string Filter(const std::string& name) {
    const std::string filters[] = {"", "*", name, name.substr(0, 1 + Below(name.size())) + "*"};
    return filters[Below(4)];
  }

  KeyRange Range(const Names& names) {
    KeyRange range;
    if (Below(3) != 0) range.first.Assign(Pick(names));
    range.filter.Assign(Filter(Pick(names)));
    if (Below(3) == 0) range.skip = static_cast<std::int32_t>(Below(8)) - 2;
    // A key that no NUL ends is the longer text that it is.
    if (Below(10) == 0) FillUp(range.first, 'b');
    return range;
  }

 private:
  std::mt19937 generator;
};

// What a read gives: its status, its count, and the names in the rows of its buffer and in one more
// at either end. A row that was not written has the empty name.
using Reply = std::tuple<Status, std::size_t, Names>;

Reply Model(const Names& sorted, const KeyRange& range, std::size_t capacity, bool forward) {
  const std::string first(range.first.View());
  Names left;
  for (const std::string& name : sorted) {
    const bool isBehind = first.empty() || (forward ? name > first : name < first);
    if (isBehind && Matches(name, std::string(range.filter.View()))) left.push_back(name);
  }
  if (!forward) std::reverse(left.begin(), left.end());
  left.erase(left.begin(), left.begin() + std::clamp<std::ptrdiff_t>(range.skip, 0, ssize(left)));
  const Status status = left.empty()             ? kDataNotFound
                        : left.size() > capacity ? kMoreData
                                                 : kNoError;
  const std::size_t count = std::min(left.size(), capacity);
  left.resize(count);
  left.insert(left.begin(), "");
  left.resize(capacity + 2);
  if (!forward) std::reverse(left.begin(), left.end());
  return {status, count, left};
}

// What a read of `book` gives.
template <class Row, class Read>
Reply RowsOf(Read read, ABIdent book, KeyRange* range, std::size_t capacity, bool forward) {
  std::vector<Row> rows(capacity + 2);
  auto count = static_cast<std::uint32_t>(capacity);
  const Status status = read(&book, range, rows.data() + 1, &count, forward ? 1 : 0);
  Names names;
  for (const Row& row : rows) names.emplace_back(row.name.View());
  return {status, count, names};
}

// Soft keys, which are entries and books at once: all three reads give the same names.
class ReadContractTest : public ServerTest {
 protected:
  void Begin(const Names& names) {
    SimulatorReset();
    LogInAsAdministrator();
    CMenuItem key;
    for (const std::string& name : names) {
      key.SetName(name);
      SimulatorPutEntry(BookKind::kTop, nullptr, nullptr, &key);
    }
  }

  ABIdent top{BookKind::kTop, ""};
  ABIdent keys{BookKind::kKeyItems, ""};
};

TEST_F(ReadContractTest, ReadsDeliverWhatTheModelDelivers) {
  for (std::mt19937::result_type seed = 1; seed <= 100 && !HasFailure(); ++seed) {
    Random random(seed);
    const Names names = random.SortedNames();
    Begin(names);
    for (int step = 0; step < 60 && !HasFailure(); ++step) {
      KeyRange drawn = random.Range(names);
      KeyRange* const range = random.Below(20) == 0 ? nullptr : &drawn;
      const std::size_t capacity = random.Below(20);
      const bool forward = random.Below(2) == 0;
      SCOPED_TRACE(testing::Message()
                   << "seed " << seed << " step " << step << " capacity " << capacity << " forward "
                   << forward << " first '" << drawn.first.View() << "' filter '"
                   << drawn.filter.View() << "' skip " << drawn.skip);
      const Reply expected = Model(names, range != nullptr ? drawn : KeyRange(), capacity, forward);
      EXPECT_EQ(RowsOf<CMenuItem>(IMSPReadAB, top, range, capacity, forward), expected);
      EXPECT_EQ(RowsOf<EntryKey>(IMSPListABEntries, top, range, capacity, forward), expected);
      EXPECT_EQ(RowsOf<ABIdent>(IMSPListAB, keys, range, capacity, forward), expected);
    }
  }
}

TEST_F(ReadContractTest, SizesClearingsAndCensusFollowTheFilter) {
  for (std::mt19937::result_type seed = 1; seed <= 60; ++seed) {
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    Random random(seed);
    const Names names = random.SortedNames();
    Begin(names);
    std::vector<std::pair<char, std::int32_t>> letters;
    for (const std::string& name : names) {
      if (letters.empty() || letters.back().first != name[0]) letters.emplace_back(name[0], 0);
      ++letters.back().second;
    }
    PageBoundary table[8] = {};
    auto count = static_cast<std::uint32_t>(random.Below(8));
    const std::size_t delivered = std::min<std::size_t>(count, letters.size());
    EXPECT_EQ(IMSPReadPageBoundaries(&top, table, &count),
              delivered < letters.size() ? kMoreData : kNoError);
    ASSERT_EQ(count, delivered);
    for (std::size_t i = 0; i < count; ++i) {
      EXPECT_EQ(std::pair(table[i].letter, table[i].count), letters[i]);
    }
    EXPECT_EQ(table[count].count, 0);

    const std::string filter = random.Filter(random.Pick(names));
    const auto matches = std::count_if(
        names.begin(), names.end(), [&](const std::string& name) { return Matches(name, filter); });
    EXPECT_EQ(IMSPSizeofAB(&top, filter.c_str(), &count), kNoError);
    EXPECT_EQ(std::int64_t{count}, matches) << filter;
    EXPECT_EQ(IMSPClearAB(&top, filter.c_str()), kNoError);
    EXPECT_EQ(SimulatorBookSize(BookKind::kTop, nullptr, nullptr), std::ssize(names) - matches);
  }
}

// A filter is any text that a caller has: no name is longer than 31 characters.
TEST_F(ReadContractTest, FilterLongerThanAnyNameMatchesNothing) {
  const std::string name(31, 'n');
  Begin({name});
  std::uint32_t count = 9;
  for (const std::string& filter : {name, name + "*", name + "n", name + "n*"}) {
    EXPECT_EQ(IMSPSizeofAB(&top, filter.c_str(), &count), kNoError);
    EXPECT_EQ(count, Matches(name, filter) ? 1U : 0U) << filter;
  }
}

}  // namespace
}  // namespace quillkit
