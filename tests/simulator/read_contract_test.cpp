// What the bulk reads deliver, against a plain model: a sorted list of names that is searched from
// end to end. Books, ranges and capacities come from fixed seeds; a failure names the seed, the
// step and the call.

#include <algorithm>
#include <cstring>
#include <functional>
#include <random>
#include <set>

#include "simulator/status_codes.h"
#include "tests/simulator/server_fixture.h"

namespace quillkit {
namespace {

using Random = std::mt19937;
using Names = std::vector<std::string>;

constexpr char kUntouched = '\x5A';

std::size_t Below(Random& random, std::size_t end) {
  return random() % end;
}

// Few characters, so that names share beginnings, and those at which an order or a filter may
// break.
std::string MakeName(Random& random) {
  constexpr std::string_view kCharacters = "aaabbAz*~ \x7F\x80\xFE\xFF\xFF";
  const std::size_t length = Below(random, 12) == 0 ? 31 : 1 + Below(random, 4);
  std::string name;
  while (name.size() < length) name += kCharacters[Below(random, kCharacters.size())];
  return name;
}

// Names in their order, each once.
Names MakeNames(Random& random) {
  std::set<std::string> names;
  for (std::size_t i = Below(random, 60); i > 0; --i) names.insert(MakeName(random));
  return {names.begin(), names.end()};
}

bool Matches(const std::string& name, const std::string& filter) {
  if (filter.empty()) return true;
  if (filter.back() == '*') return name.starts_with(filter.substr(0, filter.size() - 1));
  return name == filter;
}

std::string MakeFilter(Random& random, const std::string& name) {
  const std::string filters[] = {"", "*", name,
                                 name.substr(0, 1 + Below(random, name.size())) + "*"};
  return filters[Below(random, 4)];
}

KeyRange MakeRange(Random& random, const Names& names) {
  const auto pick = [&] {
    return names.empty() || Below(random, 3) == 0 ? MakeName(random)
                                                  : names[Below(random, names.size())];
  };
  KeyRange range;
  if (Below(random, 3) != 0) range.first.Assign(pick());
  range.filter.Assign(MakeFilter(random, pick()));
  if (Below(random, 3) == 0) range.skip = static_cast<std::int32_t>(Below(random, 8)) - 2;
  // A key that no NUL ends is the longer text that it is.
  if (Below(random, 10) == 0) FillUp(range.first, 'b');
  return range;
}

struct Expected {
  Names delivered;
  Status status;
};

Expected Model(const Names& sorted, const KeyRange& range, std::size_t capacity, bool forward) {
  const std::string first(range.first.View());
  Names left;
  for (const std::string& name : sorted) {
    const bool isBehind = first.empty() || (forward ? name > first : name < first);
    if (isBehind && Matches(name, std::string(range.filter.View()))) left.push_back(name);
  }
  if (!forward) std::reverse(left.begin(), left.end());
  const std::ptrdiff_t skipped = std::clamp<std::ptrdiff_t>(range.skip, 0, std::ssize(left));
  left.erase(left.begin(), left.begin() + skipped);
  const Status status = left.empty()             ? kDataNotFound
                        : left.size() > capacity ? kMoreData
                                                 : kNoError;
  left.resize(std::min(left.size(), capacity));
  if (!forward) std::reverse(left.begin(), left.end());
  return {left, status};
}

// One of the three reads: how wide its rows are and where they carry their name, and what makes
// them.
struct Reader {
  std::string name;
  std::size_t rowSize;
  std::size_t nameOffset;
  std::function<void(const std::string& name)> put;
  std::function<Status(KeyRange*, void*, std::uint32_t*, std::int32_t)> read;
};

std::ostream& operator<<(std::ostream& out, const Reader& each) {
  return out << each.name;
}

template <class Record>
Reader RecordReader(const std::string& title, BookKind kind, const std::string& book) {
  const auto put = [=](const std::string& name) {
    std::vector<char> record(sizeof(Record));
    std::copy(name.begin(), name.end(), record.begin());
    SimulatorPutEntry(kind, book.c_str(), "TOOLKIT", record.data());
  };
  const auto read = [=](KeyRange* range, void* rows, std::uint32_t* count, std::int32_t direction) {
    ABIdent ident(kind, book);
    return IMSPReadAB(&ident, range, rows, count, direction);
  };
  return {title, sizeof(Record), 0, put, read};
}

Reader NameReader() {
  Reader reader = RecordReader<CMenuItem>("Names", BookKind::kTop, "");
  reader.rowSize = sizeof(EntryKey);
  reader.read = [](KeyRange* range, void* rows, std::uint32_t* count, std::int32_t direction) {
    ABIdent top(BookKind::kTop, "");
    return IMSPListABEntries(&top, range, static_cast<EntryKey*>(rows), count, direction);
  };
  return reader;
}

Reader BookReader(const std::string& title, BookKind kind) {
  const auto put = [=](const std::string& name) {
    ABIdent ident(kind, name);
    IMSPCreateAB(&ident);
  };
  const auto read = [=](KeyRange* range, void* rows, std::uint32_t* count, std::int32_t direction) {
    ABIdent selector(kind, "");
    return IMSPListAB(&selector, range, static_cast<ABIdent*>(rows), count, direction);
  };
  return {title, sizeof(ABIdent), offsetof(ABIdent, name), put, read};
}

class ReadContractTest : public ServerTest, public testing::WithParamInterface<Reader> {
 protected:
  // One read into a buffer with a row to spare at either end.
  static void Check(const Names& sorted, KeyRange* range, std::size_t capacity, bool forward) {
    const Reader& reader = GetParam();
    std::vector<char> buffer((capacity + 2) * reader.rowSize, kUntouched);
    auto count = static_cast<std::uint32_t>(capacity);
    const Status status =
        reader.read(range, buffer.data() + reader.rowSize, &count, forward ? 1 : 0);
    const Expected expected =
        Model(sorted, range != nullptr ? *range : KeyRange(), capacity, forward);
    EXPECT_EQ(status, expected.status);
    ASSERT_EQ(count, expected.delivered.size());
    const std::size_t before = 1 + (forward ? 0 : capacity - count);
    for (std::size_t row = 0; row < capacity + 2; ++row) {
      const std::string_view bytes(buffer.data() + row * reader.rowSize, reader.rowSize);
      if (row >= before && row < before + count) {
        const std::string_view text = bytes.substr(reader.nameOffset, sizeof(EntryKey));
        EXPECT_EQ(text.substr(0, text.find('\0')), expected.delivered[row - before]);
      } else {
        EXPECT_EQ(bytes.find_first_not_of(kUntouched), bytes.npos) << "written outside";
      }
    }
  }
};

TEST_P(ReadContractTest, DeliversWhatTheModelDelivers) {
  for (Random::result_type seed = 1; seed <= 40; ++seed) {
    SimulatorReset();
    ASSERT_EQ(LogIn("TOOLKIT", "KELP"), kNoError);
    Random random(seed);
    const Names names = MakeNames(random);
    for (const std::string& name : names) GetParam().put(name);
    for (int step = 0; step < 60; ++step) {
      KeyRange range = MakeRange(random, names);
      KeyRange* const given = Below(random, 20) == 0 ? nullptr : &range;
      const std::size_t capacity = Below(random, 20);
      const bool forward = Below(random, 2) == 0;
      SCOPED_TRACE(testing::Message()
                   << "seed " << seed << " step " << step << " capacity " << capacity << " forward "
                   << forward << " first '" << range.first.View() << "' filter '"
                   << range.filter.View() << "' skip " << range.skip);
      Check(names, given, capacity, forward);
      if (HasFailure()) return;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(
    Reads, ReadContractTest,
    testing::Values(RecordReader<CFaxEntry>("Fax", BookKind::kFax, "FAXAB"),
                    RecordReader<PrinterRecord>("Printers", BookKind::kPrinters, "PRINTERSAB"),
                    RecordReader<CEmailEntry>("Private", BookKind::kPrivateEmail, "PRIVATEAB"),
                    RecordReader<CMenuItem>("KeyItems", BookKind::kKeyItems, "Scan"),
                    RecordReader<CEmailEntry>("PrivateList", BookKind::kPrivateList, "Mine"),
                    NameReader(), BookReader("Lists", BookKind::kPublicList),
                    BookReader("PrivateLists", BookKind::kPrivateList)),
    [](const auto& each) { return each.param.name; });

using BookSizeTest = ServerTest;

// Sizes and clearings by filter, and the census, over the same kind of names.
TEST_F(BookSizeTest, SizesClearingsAndCensusFollowTheFilter) {
  for (Random::result_type seed = 1; seed <= 60; ++seed) {
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    SimulatorReset();
    LogInAsAdministrator();
    Random random(seed);
    const Names names = MakeNames(random);
    for (const std::string& name : names) PutEmail(name);

    std::vector<std::pair<char, std::int32_t>> letters;
    for (const std::string& name : names) {
      if (letters.empty() || letters.back().first != name[0]) letters.emplace_back(name[0], 0);
      ++letters.back().second;
    }
    ABIdent book(BookKind::kEmail, kEmailBook);
    PageBoundary table[8] = {};
    auto count = static_cast<std::uint32_t>(Below(random, 8));
    const std::size_t delivered = std::min<std::size_t>(count, letters.size());
    EXPECT_EQ(IMSPReadPageBoundaries(&book, table, &count),
              delivered < letters.size() ? kMoreData : kNoError);
    ASSERT_EQ(count, delivered);
    for (std::size_t i = 0; i < count; ++i) {
      EXPECT_EQ(std::pair(table[i].letter, table[i].count), letters[i]);
    }
    EXPECT_EQ(table[count].count, 0);

    const std::string filter = MakeFilter(random, names.empty() ? "a" : names.back());
    const auto matches = std::count_if(
        names.begin(), names.end(), [&](const std::string& name) { return Matches(name, filter); });
    EXPECT_EQ(IMSPSizeofAB(&book, filter.c_str(), &count), kNoError);
    EXPECT_EQ(std::int64_t{count}, matches) << filter;
    EXPECT_EQ(IMSPClearAB(&book, filter.c_str()), kNoError);
    EXPECT_EQ(SimulatorBookSize(BookKind::kEmail, nullptr, nullptr), std::ssize(names) - matches);
  }
}

// A filter is any text that a caller has: no name is longer than 31 characters.
TEST_F(BookSizeTest, FilterLongerThanAnyNameMatchesNothing) {
  LogInAsAdministrator();
  const std::string name(31, 'n');
  PutEmail(name);
  ABIdent book(BookKind::kEmail, kEmailBook);
  std::uint32_t count = 9;
  for (const std::string& filter : {name, name + "*", name + "n", name + "n*"}) {
    EXPECT_EQ(IMSPSizeofAB(&book, filter.c_str(), &count), kNoError);
    EXPECT_EQ(count, Matches(name, filter) ? 1U : 0U) << filter;
  }
}

}  // namespace
}  // namespace quillkit
