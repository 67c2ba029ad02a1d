// The steps of the check that read the address books and the distribution lists.

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

#include "bridge/records.h"
#include "bridge/the_agent.h"
#include "console/displayed_text.h"
#include "quillctl/check_command.h"
#include "quillctl/failures.h"

namespace quillctl {
namespace {

using quillkit::ABIdent;
using quillkit::BookKind;
using quillkit::EntryKey;
using quillkit::KeyRange;
using quillkit::PageBoundary;
using quillkit::TheAgent;

struct CheckedBook {
  BookKind kind;
  std::string_view name;
  std::size_t recordSize;
};
constexpr CheckedBook kBooks[] = {
    {BookKind::kEmail, quillkit::kEmailBook, sizeof(quillkit::CEmailEntry)},
    {BookKind::kFax, quillkit::kFaxBook, sizeof(quillkit::CFaxEntry)},
    {BookKind::kUsers, quillkit::kUsersBook, sizeof(quillkit::CUserEntry)},
    {BookKind::kPrinters, quillkit::kPrintersBook, sizeof(quillkit::PrinterRecord)},
};
constexpr std::uint32_t kPage = 64;
constexpr std::uint32_t kLetters = 256;

std::uint32_t SizeOf(ABIdent& book) {
  std::uint32_t size = 0;
  const std::int32_t status = TheAgent.IMSPSizeofAB(&book, &size);
  if (status == quillkit::kAccessDenied) throw Skip("this account cannot read the books");
  RequireSuccess(status, "count the entries of " + console::Quoted(std::string(book.name.View())));
  return size;
}

// Reads a page of names after, or before, a name. They are at the beginning of the buffer, or at
// its end. Throws a Refusal unless `expected` names arrive, in ascending order.
std::vector<EntryKey> ReadPage(const CheckedBook& checked, const EntryKey& from,
                               std::int32_t direction, std::uint32_t expected, bool hasMore) {
  const std::string what = "read " + console::Quoted(std::string(checked.name)) +
                           (direction == 1 ? " forward" : " backward");
  ABIdent book(checked.kind, checked.name);
  KeyRange range(from.name.View(), "*");
  std::vector<char> records(kPage * checked.recordSize);
  std::uint32_t count = kPage;
  const std::int32_t status = TheAgent.IMSPReadAB(&book, &range, records.data(), &count, direction);
  const std::int32_t wanted = expected == 0 ? quillkit::kDataNotFound
                              : hasMore     ? quillkit::kMoreData
                                            : quillkit::kNoError;
  if (status != wanted) throw Refusal("cannot " + what + ": " + CodeAndText(status));
  if (expected != 0 && count != expected) {
    throw Refusal("cannot " + what + ": other entries than expected");
  }
  std::vector<EntryKey> names(expected);
  const std::size_t first = direction == 1 ? 0 : kPage - expected;
  for (std::size_t i = 0; i < expected; ++i) {
    const char* const record = records.data() + (first + i) * checked.recordSize;
    const std::size_t length =
        std::min(std::string_view(record, sizeof(EntryKey)).find('\0'), sizeof(EntryKey) - 1);
    names[i] = EntryKey(std::string_view(record, length));
  }
  const auto wrong = [](const EntryKey& a, const EntryKey& b) { return !(a < b); };
  if (std::ranges::adjacent_find(names, wrong) != names.end()) {
    throw Refusal("cannot " + what + ": the entries are not in order");
  }
  return names;
}

std::string ReadBothWays(CheckRun& check) {
  check.OpenSession();
  std::size_t entries = 0;
  for (const CheckedBook& each : kBooks) {
    ABIdent book(each.kind, each.name);
    const std::uint32_t size = SizeOf(book);
    const std::uint32_t part = std::min(size, kPage);
    std::vector<EntryKey> names = ReadPage(each, {}, 1, part, size > part);
    entries += size;
    if (names.empty()) continue;
    const EntryKey last = names.back();
    names.pop_back();
    if (ReadPage(each, last, 0, part - 1, false) != names) {
      throw Refusal(console::Quoted(std::string(each.name)) +
                    " has other entries if it is read backward");
    }
  }
  return console::Counted(entries, "entry", "entries");
}

std::string ReadCensus(CheckRun& check) {
  check.OpenSession();
  ABIdent book(BookKind::kEmail, quillkit::kEmailBook);
  const std::uint32_t size = SizeOf(book);
  std::array<PageBoundary, kLetters> table{};
  std::uint32_t rows = kLetters;
  RequireSuccess(TheAgent.IMSPReadPageBoundaries(&book, table.data(), &rows), "read the census");
  std::int64_t sum = 0;
  for (std::uint32_t i = 0; i < std::min(rows, kLetters); ++i) sum += table[i].count;
  if (sum != size) throw Refusal("the letters have other entries than the book");
  return console::Counted(std::min(rows, kLetters), "letter");
}

std::string ReadLists(CheckRun& check) {
  check.OpenSession();
  ABIdent selector(BookKind::kPublicList, "");
  std::uint32_t number = 0;
  const std::int32_t status = TheAgent.IMSPListAB(&selector, nullptr, nullptr, &number, 1);
  if (status == quillkit::kAccessDenied) throw Skip("this account cannot read the lists");
  RequireSuccess(status, "count the lists");
  std::array<ABIdent, kPage> lists;
  KeyRange range("", "*");
  std::uint32_t count = kPage;
  const std::int32_t listed = TheAgent.IMSPListAB(&selector, &range, lists.data(), &count, 1);
  const bool isEmpty = listed == quillkit::kDataNotFound;
  if (!isEmpty && listed != quillkit::kMoreData) RequireSuccess(listed, "list the lists");
  count = isEmpty ? 0 : std::min(count, kPage);
  if (isEmpty != (count == 0)) throw Refusal("the listing delivers nothing without code 4");
  if (count != std::min(number, kPage)) throw Refusal("other lists are listed than counted");
  for (std::uint32_t i = 0; i < count; ++i) {
    lists[i].Terminate();
    SizeOf(lists[i]);
  }
  return console::Counted(number, "list");
}

}  // namespace

std::vector<Step> BookSteps() {
  return {
      {"read the address books in both directions", ReadBothWays},
      {"read the letter census", ReadCensus},
      {"read the distribution lists", ReadLists},
  };
}

}  // namespace quillctl
