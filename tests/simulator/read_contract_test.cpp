// What the bulk reads deliver, against a plain model: a sorted list of names that is searched from
// end to end. Books, ranges and capacities come from fixed seeds; a failure names the seed, the
// step and the call.

#include <algorithm>
#include <cstring>
#include <functional>
#include <optional>
#include <random>

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

Names MakeNames(Random& random) {
  Names names;
  for (std::size_t i = Below(random, 60); i > 0; --i) names.push_back(MakeName(random));
  return names;
}

// A record of any book: the name, and a byte of it at the front of the next field.
std::vector<char> MakeRecord(std::size_t size, const std::string& name) {
  std::vector<char> record(size);
  std::copy(name.begin(), name.end(), record.begin());
  record[32] = name.back();
  return record;
}

bool Matches(const std::string& name, const std::string& filter) {
  if (filter.empty()) return true;
  if (filter.back() == '*') return name.starts_with(filter.substr(0, filter.size() - 1));
  return name == filter;
}

struct Expected {
  Names delivered;
  std::size_t slot = 0;  // where the first one stands
  Status status = kNoError;
};

Expected Model(const Names& sorted, const KeyRange& range, std::size_t capacity,
               std::int32_t direction) {
  const std::string first(range.first.View());
  const std::string filter(range.filter.View());
  Names left;
  for (const std::string& name : sorted) {
    const bool isBehind = first.empty() || (direction == 1 ? name > first : name < first);
    if (isBehind && Matches(name, filter)) left.push_back(name);
  }
  for (std::int32_t i = 0; i < range.skip && !left.empty(); ++i) {
    left.erase(direction == 1 ? left.begin() : left.end() - 1);
  }
  Expected expected;
  expected.status = left.empty() ? kDataNotFound : left.size() > capacity ? kMoreData : kNoError;
  while (left.size() > capacity) left.erase(direction == 1 ? left.end() - 1 : left.begin());
  expected.slot = direction == 1 ? 0 : capacity - left.size();
  expected.delivered = left;
  return expected;
}

KeyRange MakeRange(Random& random, const Names& names) {
  const auto pick = [&] {
    return names.empty() || Below(random, 3) == 0 ? MakeName(random)
                                                  : names[Below(random, names.size())];
  };
  KeyRange range;
  if (Below(random, 3) != 0) range.first.Assign(pick());
  switch (Below(random, 5)) {
    case 0:
      range.filter.Assign("*");
      break;
    case 1:
      range.filter.Assign(pick());
      break;
    case 2:
    case 3: {
      const std::string name = pick();
      range.filter.Assign(name.substr(0, 1 + Below(random, name.size())) + "*");
      break;
    }
    default:
      break;
  }
  if (Below(random, 3) == 0) range.skip = static_cast<std::int32_t>(Below(random, 8)) - 2;
  // A key that no NUL ends is the longer text that it is.
  if (Below(random, 10) == 0) FillUp(range.first, 'b');
  return range;
}

// One of the three reads: what makes its rows, how wide they are, and where they carry their name.
struct Reader {
  std::string title;
  std::size_t rowSize = 0;
  std::size_t nameOffset = 0;
  bool isRecord = false;
  std::function<void(const std::string& name)> put;
  std::function<Status(KeyRange*, void*, std::uint32_t*, std::int32_t)> read;
};

void PrintTo(const Reader& reader, std::ostream* stream) {
  *stream << reader.title;
}

std::string Title(std::string_view entry, BookKind kind) {
  return std::string(entry) + " of kind " + std::to_string(static_cast<unsigned>(kind));
}

template <class Record>
Reader RecordReader(BookKind kind, const std::string& book) {
  return {Title("IMSPReadAB", kind),
          sizeof(Record),
          0,
          true,
          [=](const std::string& name) {
            const std::vector<char> record = MakeRecord(sizeof(Record), name);
            SimulatorPutEntry(kind, book.c_str(), "TOOLKIT", record.data());
          },
          [=](KeyRange* range, void* rows, std::uint32_t* count, std::int32_t direction) {
            ABIdent ident(kind, book);
            return IMSPReadAB(&ident, range, rows, count, direction);
          }};
}

template <class Record>
Reader NameReader(BookKind kind) {
  Reader reader = RecordReader<Record>(kind, "");
  reader.title = Title("IMSPListABEntries", kind);
  reader.rowSize = sizeof(EntryKey);
  reader.isRecord = false;
  reader.read = [=](KeyRange* range, void* rows, std::uint32_t* count, std::int32_t direction) {
    ABIdent ident(kind, "");
    return IMSPListABEntries(&ident, range, static_cast<EntryKey*>(rows), count, direction);
  };
  return reader;
}

Reader BookReader(BookKind kind) {
  return {Title("IMSPListAB", kind),
          sizeof(ABIdent),
          offsetof(ABIdent, name),
          false,
          [=](const std::string& name) {
            ABIdent ident(kind, name);
            IMSPCreateAB(&ident);
          },
          [=](KeyRange* range, void* rows, std::uint32_t* count, std::int32_t direction) {
            ABIdent selector(kind, "");
            return IMSPListAB(&selector, range, static_cast<ABIdent*>(rows), count, direction);
          }};
}

class ReadContractTest : public ServerTest, public testing::WithParamInterface<Reader> {
 protected:
  // One read into a buffer with a row to spare at either end.
  void Check(const Names& sorted, KeyRange* range, std::size_t capacity, std::int32_t direction) {
    const std::size_t width = GetParam().rowSize;
    std::vector<char> buffer((capacity + 2) * width, kUntouched);
    auto count = static_cast<std::uint32_t>(capacity);
    const Status status = GetParam().read(range, buffer.data() + width, &count, direction);
    const Expected expected =
        Model(sorted, range != nullptr ? *range : KeyRange(), capacity, direction);
    EXPECT_EQ(status, expected.status);
    ASSERT_EQ(count, expected.delivered.size());
    for (std::size_t row = 0; row < capacity + 2; ++row) {
      const std::size_t index = row - 1 - expected.slot;  // wraps round before the first one
      CheckRow(buffer.data() + row * width,
               index < count ? std::optional(expected.delivered[index]) : std::nullopt);
    }
  }

 private:
  static void CheckRow(const char* row, const std::optional<std::string>& name) {
    const Reader& reader = GetParam();
    if (!name) {
      const std::string_view bytes(row, reader.rowSize);
      EXPECT_EQ(bytes.find_first_not_of(kUntouched), std::string_view::npos) << "written outside";
    } else if (reader.isRecord) {
      const std::vector<char> record = MakeRecord(reader.rowSize, *name);
      EXPECT_EQ(std::memcmp(row, record.data(), record.size()), 0) << "not " << *name;
    } else {
      EntryKey key;
      std::memcpy(&key, row + reader.nameOffset, sizeof key);
      EXPECT_EQ(key.name.View(), *name);
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
    Names sorted = names;
    std::sort(sorted.begin(), sorted.end());
    sorted.erase(std::unique(sorted.begin(), sorted.end()), sorted.end());
    for (int step = 0; step < 60; ++step) {
      KeyRange range = MakeRange(random, names);
      KeyRange* const given = Below(random, 20) == 0 ? nullptr : &range;
      const std::size_t capacity = Below(random, 20);
      const std::int32_t direction = Below(random, 2) == 0 ? 1 : 0;
      SCOPED_TRACE(testing::Message()
                   << "seed " << seed << " step " << step << " capacity " << capacity
                   << " direction " << direction << " first '" << range.first.View() << "' filter '"
                   << range.filter.View() << "' skip " << range.skip);
      Check(sorted, given, capacity, direction);
      if (HasFailure()) return;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(
    Reads, ReadContractTest,
    testing::Values(RecordReader<CEmailEntry>(BookKind::kEmail, "EMAILAB"),
                    RecordReader<CFaxEntry>(BookKind::kFax, "FAXAB"),
                    RecordReader<PrinterModelRecord>(BookKind::kModels, "MODELAB"),
                    RecordReader<PrinterRecord>(BookKind::kPrinters, "PRINTERSAB"),
                    RecordReader<CEmailEntry>(BookKind::kPrivateEmail, "PRIVATEAB"),
                    RecordReader<CMenuItem>(BookKind::kKeyItems, "Scan"),
                    RecordReader<CEmailEntry>(BookKind::kPrivateList, "Mine"),
                    NameReader<CMenuItem>(BookKind::kTop),
                    NameReader<CEmailEntry>(BookKind::kEmail), BookReader(BookKind::kPublicList),
                    BookReader(BookKind::kPrivateList), BookReader(BookKind::kFaxList)));

using BookSizeTest = ServerTest;

// Sizes and clearings by filter, and the census, over the same kind of names.
TEST_F(BookSizeTest, SizesClearingsAndCensusFollowTheFilter) {
  for (Random::result_type seed = 1; seed <= 60; ++seed) {
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    SimulatorReset();
    LogInAsAdministrator();
    Random random(seed);
    Names names = MakeNames(random);
    for (const std::string& name : names) PutEmail(name);
    std::sort(names.begin(), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());

    std::vector<PageBoundary> expected;
    for (const std::string& name : names) {
      if (expected.empty() || expected.back().letter != name[0])
        expected.push_back({name[0], {}, 0});
      ++expected.back().count;
    }
    ABIdent book(BookKind::kEmail, kEmailBook);
    std::vector<PageBoundary> table(128);
    std::uint32_t count = 128;
    EXPECT_EQ(IMSPReadPageBoundaries(&book, table.data(), &count), kNoError);
    ASSERT_EQ(count, expected.size());
    for (std::size_t i = 0; i < count; ++i) {
      EXPECT_EQ(table[i].letter, expected[i].letter);
      EXPECT_EQ(table[i].count, expected[i].count);
    }

    const std::string filter(MakeRange(random, names).filter.View());
    const auto matches = std::count_if(
        names.begin(), names.end(), [&](const std::string& name) { return Matches(name, filter); });
    EXPECT_EQ(IMSPSizeofAB(&book, filter.c_str(), &count), kNoError);
    EXPECT_EQ(std::int64_t{count}, matches) << filter;
    EXPECT_EQ(IMSPClearAB(&book, filter.c_str()), kNoError);
    EXPECT_EQ(SimulatorBookSize(BookKind::kEmail, nullptr, nullptr), std::ssize(names) - matches);
  }
}

TEST_F(BookSizeTest, CensusLargerThanTheTableGivesWhatFits) {
  LogInAsAdministrator();
  for (const char* name : {"ant", "bee", "bug", "cow"}) PutEmail(name);
  ABIdent book(BookKind::kEmail, kEmailBook);
  PageBoundary table[3] = {{'#', {}, -1}, {'#', {}, -1}, {'#', {}, -1}};
  std::uint32_t count = 2;
  EXPECT_EQ(IMSPReadPageBoundaries(&book, table, &count), kMoreData);
  EXPECT_EQ(count, 2U);
  EXPECT_EQ(table[1].letter, 'b');
  EXPECT_EQ(table[1].count, 2);
  EXPECT_EQ(table[2].letter, '#');
}

// A filter is any text that a caller has: no name is longer than 31 characters.
TEST_F(BookSizeTest, FilterLongerThanAnyNameMatchesNothing) {
  LogInAsAdministrator();
  const std::string name(31, 'n');
  PutEmail(name);
  ABIdent book(BookKind::kEmail, kEmailBook);
  std::uint32_t count = 9;
  for (const std::string& filter : {name, name + "*"}) {
    EXPECT_EQ(IMSPSizeofAB(&book, filter.c_str(), &count), kNoError);
    EXPECT_EQ(count, 1U) << filter;
  }
  for (const std::string& filter : {name + "n", name + "n*", std::string(5000, 'n')}) {
    EXPECT_EQ(IMSPSizeofAB(&book, filter.c_str(), &count), kNoError);
    EXPECT_EQ(count, 0U) << filter;
  }
}

TEST_F(BookSizeTest, BookCountComesWithoutABuffer) {
  LogInAsAdministrator();
  ABIdent selector(BookKind::kPublicList, "");
  std::uint32_t count = 77;
  EXPECT_EQ(IMSPListAB(&selector, nullptr, nullptr, &count, 1), kNoError);
  EXPECT_EQ(count, 0U);
  for (const char* name : {"One", "Two"}) {
    ABIdent list(BookKind::kPublicList, name);
    IMSPCreateAB(&list);
  }
  EXPECT_EQ(IMSPListAB(&selector, nullptr, nullptr, &count, 1), kNoError);
  EXPECT_EQ(count, 2U);
}

}  // namespace
}  // namespace quillkit
