#include "quillctl/address_books.h"

#include <algorithm>
#include <array>
#include <utility>

#include "toolkit/quillkit.h"
#include "views/entry_source.h"

namespace quillctl {
namespace {

using quillkit::CScanner;

template <std::size_t N>
std::string Text(const quillkit::FixedText<N>& field) {
  return std::string(field.View());
}

Row Cells(const quillkit::CEmailEntry& entry) {
  return {Text(entry.name), Text(entry.address)};
}

Row Cells(const quillkit::CFaxEntry& entry) {
  return {Text(entry.name), Text(entry.number), Text(entry.third)};
}

Row Cells(const quillkit::PrinterRecord& entry) {
  return {Text(entry.printerName), Text(entry.description), Text(entry.printerModel)};
}

Row Cells(const quillkit::CUserEntry& entry) {
  return {Text(entry.name), Text(entry.password), Text(entry.third), Text(entry.fourth)};
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
    std::uint32_t count = kPage;
    const quillkit::Status status = entries.Read(&range, page.data(), &count, 1);
    if (status == quillkit::kDataNotFound) return quillkit::kNoError;
    if (status != quillkit::kNoError && status != quillkit::kMoreData) return status;
    for (std::uint32_t i = 0; i < count; ++i, --left) {
      Row row = Cells(page[i]);
      if (row[0].empty() && row[1].empty()) return quillkit::kUnusableInput;  // a blank record
      range.first.Assign(row[0]);
      if (!handle(std::move(row))) return quillkit::kNoError;
    }
    if (status == quillkit::kNoError) return quillkit::kNoError;
    if (count == 0) break;  // more entries that never come
  }
  return quillkit::kUnusableInput;
}

template <auto Access>
std::int32_t CountEntries(const quillkit::CScanner& scanner, std::uint32_t* count) {
  return (scanner.*Access)().Size(count);
}

}  // namespace

Row AddressBook::WithoutSecret(Row row) const {
  if (secretField < row.size() && !row[secretField].empty()) row[secretField] = "(set)";
  return row;
}

std::span<const AddressBook> PublicBooks() {
  static const std::array<AddressBook, 4> books = {{
      {"email",
       "e-mail book",
       quillkit::TargetEmail,
       {"Name", "Address"},
       2,
       ReadPages<&CScanner::EmailEntries>,
       CountEntries<&CScanner::EmailEntries>},
      {"fax",
       "fax book",
       quillkit::TargetFax,
       {"Name", "Number", "Third"},
       2,
       ReadPages<&CScanner::FaxEntries>,
       CountEntries<&CScanner::FaxEntries>},
      {"printers",
       "printer book",
       quillkit::TargetPrinters,
       {"Name", "Description", "Model"},
       1,
       ReadPages<&CScanner::PrinterEntries>,
       CountEntries<&CScanner::PrinterEntries>},
      {"users",
       "user book",
       quillkit::TargetUsers,
       {"Name", "Password", "Third", "Fourth"},
       1,
       ReadPages<&CScanner::UserEntries>,
       CountEntries<&CScanner::UserEntries>,
       1},
  }};
  return books;
}

std::span<const AddressBook> PrivateBook() {
  static const std::array<AddressBook, 1> book = {{{"private",
                                                    "private e-mail book",
                                                    0,
                                                    {"Name", "Address"},
                                                    2,
                                                    ReadPages<&CScanner::PrivateEntries>,
                                                    CountEntries<&CScanner::PrivateEntries>}}};
  return book;
}

std::span<const AddressBook> FindBook(std::string_view word) {
  const std::span<const AddressBook> books = PublicBooks();
  for (std::size_t i = 0; i < books.size(); ++i) {
    if (books[i].word == word) return books.subspan(i, 1);
  }
  return {};
}

std::vector<std::string> BookWords() {
  std::vector<std::string> words;
  for (const AddressBook& each : PublicBooks()) words.emplace_back(each.word);
  return words;
}

std::optional<std::vector<Row>> ReadAllEntries(const AddressBook& book,
                                               const quillkit::CScanner& scanner) {
  std::vector<Row> rows;
  const auto keep = [&rows](Row row) {
    rows.push_back(std::move(row));
    return true;
  };
  if (book.read(scanner, {}, "*", keep) != quillkit::kNoError) return std::nullopt;
  std::uint32_t count = 0;
  const quillkit::Status status = book.count(scanner, &count);
  const bool isMissing = status == quillkit::kNoSuchBook || status == quillkit::kDataNotFound;
  if (rows.empty() && isMissing) return rows;
  if (status != quillkit::kNoError || rows.size() != count) return std::nullopt;
  return rows;
}

}  // namespace quillctl
