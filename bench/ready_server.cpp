#include "bench/ready_server.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "bridge/imsp_api.h"

namespace quillkit {
namespace {

constexpr std::uint32_t kLetters = 26;

std::uint32_t entryCount = kReadyEntries;
std::uint32_t itemCount = kReadyItems;
std::uint32_t memberCount = kReadyMembers;
std::uint32_t userCount = kReadyUsers;
std::uint64_t calls = 0;
std::uint64_t reads = 0;

std::string Numbered(const char* word, std::uint32_t number) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%s%06u", word, number);
  return text.data();
}

// Each letter has the same number of entries, or one more.
std::uint32_t FirstOfLetter(std::uint32_t letter) {
  const std::uint64_t all = entryCount;
  return static_cast<std::uint32_t>((all * letter + kLetters - 1) / kLetters);
}

template <class Row, class Fill>
std::vector<Row> Table(std::uint32_t count, Fill fill) {
  std::vector<Row> table(count);
  for (std::uint32_t i = 0; i < count; ++i) fill(table[i], i);
  return table;
}

std::vector<CEmailEntry> Entries(const char* word, std::uint32_t count) {
  return Table<CEmailEntry>(count, [&](CEmailEntry& entry, std::uint32_t i) {
    entry.SetName(Numbered(word, i));
    entry.SetAddress("somebody@quillbox.example");
  });
}

// The e-mail book. A name ends with its index, so that a key is found without a search.
std::vector<CEmailEntry> Book() {
  auto book = Entries("", entryCount);
  for (std::uint32_t letter = 0; letter < kLetters; ++letter) {
    for (std::uint32_t i = FirstOfLetter(letter); i < FirstOfLetter(letter + 1); ++i) {
      const char initial[] = {static_cast<char>('a' + letter), '\0'};
      book[i].SetName(Numbered(initial, i));
    }
  }
  return book;
}

std::vector<CEmailEntry>& TheBook() {
  static std::vector<CEmailEntry> book = Book();
  return book;
}

// The tables are filled when they are first read.

const std::vector<CMenuItem>& Items() {
  static const auto items = Table<CMenuItem>(kReadyItems, [](CMenuItem& item, std::uint32_t i) {
    item.SetName(Numbered("Item", i));
    item.SetPath("//server/share/scans");
    item.SetAppTag("Archive");
    item.SetIPAddress("192.0.2.7");
  });
  return items;
}

std::vector<CEmailEntry>& Members() {
  static auto members = Entries("Member", memberCount);
  return members;
}

const std::vector<CUserEntry>& Users() {
  static const auto users = Table<CUserEntry>(kReadyUsers, [](CUserEntry& user, std::uint32_t i) {
    user.SetName(Numbered("User", i));
    user.SetPassword("password");
    user.SetThird("192.0.2.7");
  });
  return users;
}

const std::vector<EntryKey>& Keys() {
  static const auto keys = Table<EntryKey>(
      kReadyKeys, [](EntryKey& key, std::uint32_t i) { key = EntryKey(Numbered("Key", i)); });
  return keys;
}

const std::vector<ABIdent>& Lists() {
  static const auto lists = Table<ABIdent>(
      kReadyLists, [](ABIdent& list, std::uint32_t i) { list.SetName(Numbered("List", i)); });
  return lists;
}

// Copies the first `offered` rows of a table, as many as fit.
template <class Row>
Status Deliver(const std::vector<Row>& table, std::size_t offered, void* rows,
               std::uint32_t* count) {
  const bool isMore = offered > *count;
  *count = static_cast<std::uint32_t>(std::min<std::size_t>(offered, *count));
  if (*count == 0) return kDataNotFound;
  std::memcpy(rows, static_cast<const void*>(table.data()), *count * sizeof(Row));
  return isMore ? kMoreData : kNoError;
}

// Stores a record that has only this name.
template <class Row>
void DeliverOne(const EntryKey& key, void* record) {
  Row row;
  row.SetName(key.name.View());
  std::memcpy(record, &row, sizeof row);
}

// The index of the first entry whose name is not before the key.
std::uint32_t IndexOf(std::string_view key) {
  const auto& book = TheBook();
  if (key.size() == 7) {
    const auto index = static_cast<std::uint32_t>(std::strtoul(key.data() + 1, nullptr, 10));
    if (index < entryCount && book[index].name == key) return index;
  }
  const auto found = std::lower_bound(
      book.begin(), book.end(), key,
      [](const CEmailEntry& entry, std::string_view wanted) { return entry.name.View() < wanted; });
  return static_cast<std::uint32_t>(found - book.begin());
}

// Reads the e-mail book: a letter of it, or all.
Status ReadBook(const KeyRange* range, CEmailEntry* rows, std::uint32_t* count, bool isForward) {
  const auto& book = TheBook();
  std::uint32_t low = 0;
  std::uint32_t high = entryCount;
  std::string_view key;
  std::uint32_t skip = 0;
  if (range != nullptr) {
    const std::string_view filter = range->filter.View();
    if (!filter.empty() && filter != "*") {
      const auto letter = static_cast<std::uint32_t>(filter.front() - 'a');
      low = FirstOfLetter(letter);
      high = FirstOfLetter(letter + 1);
    }
    key = range->first.View();
    skip = static_cast<std::uint32_t>(range->skip);
  }
  if (!key.empty()) {
    const std::uint32_t at = IndexOf(key);
    const bool isKey = at < entryCount && book[at].name == key;
    if (isForward) {
      low = std::max(low, at + (isKey ? 1 : 0));
    } else {
      high = std::min(high, at);
    }
  }
  const std::uint32_t left = high - std::min(high, low + skip);
  const std::uint32_t delivered = std::min(left, *count);
  if (delivered == 0) {
    *count = 0;
    return kDataNotFound;
  }
  const std::uint32_t first = isForward ? low + skip : high - delivered;
  CEmailEntry* const to = rows + (isForward ? 0 : *count - delivered);
  std::memcpy(static_cast<void*>(to), book.data() + first, delivered * sizeof(CEmailEntry));
  *count = delivered;
  return left > delivered ? kMoreData : kNoError;
}

}  // namespace

extern "C" {

void ReadyServerSetEntries(std::uint32_t count) {
  entryCount = std::min(count, kReadyEntries);
  TheBook() = Book();
}

void ReadyServerSetItems(std::uint32_t count) {
  itemCount = std::min(count, kReadyItems);
}

void ReadyServerSetMembers(std::uint32_t count) {
  memberCount = std::min(count, kReadyEntries);
  Members() = Entries("Member", memberCount);
}

void ReadyServerSetUsers(std::uint32_t count) {
  userCount = std::min(count, kReadyUsers);
}

std::uint64_t ReadyServerCalls() {
  return calls;
}

std::uint64_t ReadyServerReads() {
  return reads;
}

Status IMSPInit() {
  return kNoError;
}

Status IMSPTerminate() {
  return kNoError;
}

Status IMSPLogin(LoginRecord* /*login*/, char* identity, std::uint32_t capacity) {
  std::snprintf(identity, capacity, "Quillbox - 1.0 - ready");
  return kNoError;
}

Status IMSPLogout() {
  return kNoError;
}

Status IMSPWakeup() {
  return kNoError;
}

Status IMSPIOCtl(IOCtlRecord* /*record*/) {
  return kNoError;
}

Status IMSPReadEntryProperties(ABIdent* book, EntryKey* key, void* record) {
  ++calls;
  if (book->kind == BookKind::kUsers) {
    DeliverOne<CUserEntry>(*key, record);
  } else {
    DeliverOne<CEmailEntry>(*key, record);
  }
  return kNoError;
}

Status IMSPListABEntries(ABIdent* /*book*/, KeyRange* /*range*/, EntryKey* rows,
                         std::uint32_t* count, std::int32_t /*direction*/) {
  ++calls;
  return Deliver(Keys(), kReadyKeys, rows, count);
}

Status IMSPListAB(ABIdent* /*selector*/, KeyRange* /*range*/, ABIdent* books, std::uint32_t* count,
                  std::int32_t /*direction*/) {
  ++calls;
  return Deliver(Lists(), kReadyLists, books, count);
}

Status IMSPSizeofAB(ABIdent* book, const char* /*filter*/, std::uint32_t* count) {
  ++calls;
  *count = book->kind == BookKind::kEmail ? entryCount : memberCount;
  return kNoError;
}

Status IMSPReadAB(ABIdent* book, KeyRange* range, void* records, std::uint32_t* count,
                  std::int32_t direction) {
  ++calls;
  ++reads;
  switch (book->kind) {
    case BookKind::kEmail:
      return ReadBook(range, static_cast<CEmailEntry*>(records), count, direction == 1);
    case BookKind::kUsers:
      return Deliver(Users(), userCount, records, count);
    case BookKind::kKeyItems:
      return Deliver(Items(), itemCount, records, count);
    default:
      return Deliver(Members(), memberCount, records, count);
  }
}

Status IMSPReadPageBoundaries(ABIdent* /*book*/, PageBoundary* table, std::uint32_t* count) {
  ++calls;
  const auto letters =
      Table<PageBoundary>(std::min(kLetters, *count), [](PageBoundary& row, std::uint32_t i) {
        row.letter = static_cast<char>('a' + i);
        row.count = static_cast<std::int32_t>(FirstOfLetter(i + 1) - FirstOfLetter(i));
      });
  return Deliver(letters, letters.size(), table, count);
}

}  // extern "C"

}  // namespace quillkit
