#include "quillctl/address_books.h"

#include <algorithm>
#include <array>

#include "toolkit/quillkit.h"

namespace quillctl {
namespace {

using quillkit::BookKind;

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

template <typename Record, BookKind kKind>
std::vector<Row> ReadBook(EntryAt entryAt, const char* user) {
  std::vector<Row> rows;
  Record record;
  for (std::int32_t i = 0; entryAt(kKind, "", user, i, &record) != 0; ++i) {
    rows.push_back(Cells(record));
  }
  return rows;
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
       ReadBook<quillkit::CEmailEntry, BookKind::kEmail>},
      {"fax",
       "fax book",
       quillkit::TargetFax,
       {"Name", "Number", "Third"},
       2,
       ReadBook<quillkit::CFaxEntry, BookKind::kFax>},
      {"printers",
       "printer book",
       quillkit::TargetPrinters,
       {"Name", "Description", "Model"},
       1,
       ReadBook<quillkit::PrinterRecord, BookKind::kPrinters>},
      {"users",
       "user book",
       quillkit::TargetUsers,
       {"Name", "Password", "Third", "Fourth"},
       1,
       ReadBook<quillkit::CUserEntry, BookKind::kUsers>,
       1},
  }};
  return books;
}

std::span<const AddressBook> PrivateBook() {
  static const std::array<AddressBook, 1> book = {
      {{"",
        "private e-mail book",
        0,
        {"Name", "Address"},
        2,
        ReadBook<quillkit::CEmailEntry, BookKind::kPrivateEmail>}}};
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

SimulatorBooks::SimulatorBooks()
    : serverLibrary(quillkit::LoadModule("IMSPAPI")),
      entryAt(
          reinterpret_cast<EntryAt>(quillkit::FindEntryPoint(serverLibrary, "SimulatorEntryAt"))) {}

SimulatorBooks::~SimulatorBooks() {
  quillkit::UnloadModule(serverLibrary);
}

}  // namespace quillctl
