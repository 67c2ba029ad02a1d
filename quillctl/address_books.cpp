#include "quillctl/address_books.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/secret.h"
#include "console/progress.h"
#include "console/system/terminal.h"
#include "quillctl/failures.h"
#include "toolkit/quillkit.h"
#include "views/entry_source.h"

namespace quillctl {
namespace {

using quillkit::CScanner;

// Stores the values in the record. Throws a UsageError for one that is too long.
template <class Record>
void Store(Record& record, const console::Row& row, const AddressBook& book) {
  std::size_t i = 0;
  const auto store = [&](auto& text) {
    if (text.Set(row[i]) == 0) {
      throw UsageError("the " + console::LowerCase(book.fields[i]) + " is longer than " +
                       std::to_string(text.kMaxLength) + " bytes");
    }
    ++i;
  };
  std::apply([&](auto&... text) { (store(text), ...); }, Texts(record));
}

// Returns the largest sizes of the texts of a record.
template <class Record>
std::vector<std::size_t> Widths() {
  Record record;
  return std::apply(
      [](const auto&... text) {
        return std::vector<std::size_t>{std::remove_cvref_t<decltype(text)>::kMaxLength...};
      },
      Texts(record));
}

constexpr std::uint32_t kPage = 64;

// Reads pages of a book. `Access` is the scanner's function for its entries. If the server repeats
// entries, reading stops at the size of the largest book.
template <auto Access>
std::int32_t ReadPages(const quillkit::CScanner& scanner, const std::string& from,
                       const std::string& filter, const RowHandler& handle) {
  auto entries = (scanner.*Access)();
  std::vector<typename decltype(entries)::Record> page(kPage);
  quillkit::KeyRange range(from, filter);
  for (std::int32_t left = quillkit::MaxEmailEntries; left > 0;) {
    console::KeepSessionAlive();
    std::uint32_t count = kPage;
    const quillkit::Status status = entries.Read(&range, page.data(), &count, 1);
    if (status == quillkit::kDataNotFound) return quillkit::kNoError;
    if (status != quillkit::kNoError && status != quillkit::kMoreData) return status;
    const std::string previous(range.first.View());
    for (std::uint32_t i = 0; i < count; ++i, --left) {
      console::Row row = Cells(page[i]);
      if (row[0].empty()) return quillkit::kUnusableInput;  // a blank record
      range.first.Assign(row[0]);
      if (!handle(std::move(row))) return quillkit::kNoError;
    }
    if (status == quillkit::kNoError) return quillkit::kNoError;
    if (range.first == previous) break;  // more entries that never come
  }
  return quillkit::kUnusableInput;
}

template <auto Access>
std::int32_t CountEntries(const quillkit::CScanner& scanner, std::uint32_t* count) {
  return (scanner.*Access)().Size(count);
}

template <auto Access>
std::int32_t AddEntry(const AddressBook& book, const CScanner& scanner, const console::Row& row) {
  auto entries = (scanner.*Access)();
  quillkit::Wiped<typename decltype(entries)::Record> record;
  Store(record, row, book);
  return entries.Create(&record);
}

template <auto Access>
std::int32_t ChangeEntry(const AddressBook& book, const CScanner& scanner, const std::string& name,
                         const std::function<bool(console::Row&)>& edit) {
  auto entries = (scanner.*Access)();
  quillkit::Wiped<typename decltype(entries)::Record> record;
  std::get<0>(Texts(record)).Assign(name);
  const quillkit::Status status = entries.ReadOne(&record);
  if (status != quillkit::kNoError) return status;
  console::Row row = Cells(record);
  if (row[0] != name) return quillkit::kUnusableInput;  // another entry
  if (!edit(row)) return quillkit::kNoError;
  Store(record, row, book);
  return row[0] == name ? entries.Modify(&record) : entries.Rename(name, &record);
}

template <auto Access>
std::int32_t DeleteEntry(const CScanner& scanner, const std::string& name) {
  return (scanner.*Access)().Delete(name);
}

template <auto Access>
AddressBook Book(std::string_view word, std::string_view title, std::int32_t target,
                 console::Row fields, std::size_t requiredFields, std::int32_t (*clear)(CScanner&),
                 std::size_t secretField = AddressBook::kNone) {
  return {word,
          title,
          target,
          std::move(fields),
          Widths<typename decltype((std::declval<const CScanner&>().*Access)())::Record>(),
          requiredFields,
          ReadPages<Access>,
          CountEntries<Access>,
          AddEntry<Access>,
          ChangeEntry<Access>,
          DeleteEntry<Access>,
          clear,
          secretField};
}

}  // namespace

console::Row AddressBook::WithoutSecret(console::Row row) const {
  if (secretField < row.size() && !row[secretField].empty()) row[secretField] = "(set)";
  return row;
}

std::span<const AddressBook> AllBooks() {
  static const std::array<AddressBook, 5> books = {
      Book<&CScanner::EmailEntries>("email", "e-mail book", quillkit::TargetEmail,
                                    {"Name", "Address"}, 2,
                                    [](CScanner& scanner) { return scanner.ClearEmailBook(); }),
      Book<&CScanner::FaxEntries>("fax", "fax book", quillkit::TargetFax,
                                  {"Name", "Number", "Third"}, 2,
                                  [](CScanner& scanner) { return scanner.ClearFaxBook(); }),
      Book<&CScanner::PrinterEntries>(
          "printers", "printer book", quillkit::TargetPrinters, {"Name", "Description", "Model"}, 1,
          [](CScanner& scanner) { return scanner.ClearPrintersBook(); }),
      Book<&CScanner::UserEntries>(
          "users", "user book", quillkit::TargetUsers, {"Name", "Password", "Third", "Fourth"}, 1,
          [](CScanner& scanner) { return scanner.ClearUsersBook(); }, 1),
      Book<&CScanner::PrivateEntries>(
          "private", "private e-mail book", 0, {"Name", "Address"}, 2,
          [](CScanner& scanner) { return scanner.PrivateEntries().ClearBook(); })};
  return books;
}

std::span<const AddressBook> PublicBooks() {
  return AllBooks().first(4);
}

std::span<const AddressBook> PrivateBook() {
  return AllBooks().last(1);
}

const AddressBook& BookOf(std::string_view word) {
  return *std::ranges::find(AllBooks(), word, &AddressBook::word);
}

std::vector<std::string> AllBookWords() {
  std::vector<std::string> words;
  for (const AddressBook& each : AllBooks()) words.emplace_back(each.word);
  return words;
}

std::int32_t ReadCompletely(const AddressBook& book, const quillkit::CScanner& scanner,
                            const std::string& activity,
                            const std::function<void(console::Row)>& handle) {
  std::uint32_t count = 0;
  std::size_t entries = 0;
  console::Progress progress(activity + " the " + std::string(book.title), [&] {
    return book.count(scanner, &count) == quillkit::kNoError ? count : 0;
  });
  const std::int32_t status = book.read(scanner, {}, "*", [&](console::Row row) {
    handle(std::move(row));
    ++entries;
    progress.Step();
    return true;
  });
  if (status != quillkit::kNoError) return status;
  const std::int32_t counted = book.count(scanner, &count);
  const bool isMissing = counted == quillkit::kNoSuchBook || counted == quillkit::kDataNotFound;
  if (entries == 0 && isMissing) return quillkit::kNoError;
  if (counted != quillkit::kNoError) return counted;
  return count == entries ? quillkit::kNoError : quillkit::kUnusableInput;
}

std::optional<std::vector<console::Row>> ReadAllEntries(const AddressBook& book,
                                                        const quillkit::CScanner& scanner) {
  std::vector<console::Row> rows;
  const std::int32_t status = ReadCompletely(
      book, scanner, "Reading", [&](console::Row row) { rows.push_back(std::move(row)); });
  return status == quillkit::kNoError ? std::optional(std::move(rows)) : std::nullopt;
}

}  // namespace quillctl
