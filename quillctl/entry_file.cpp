#include "quillctl/entry_file.h"

#include <algorithm>
#include <cstddef>

#include "console/json_output.h"
#include "contacts/encoding.h"
#include "contacts/writers.h"
#include "import/import_options.h"
#include "quillctl/failures.h"

namespace quillctl {
namespace {

console::Row WithoutPassword(const AddressBook& book, console::Row row) {
  if (book.secretField < row.size()) {
    row.erase(row.begin() + static_cast<std::ptrdiff_t>(book.secretField));
  }
  return row;
}

template <bool kForSpreadsheet>
std::string WriteCsv(const AddressBook& book, const std::vector<console::Row>& entries) {
  std::string text(kForSpreadsheet ? contacts::kUtf8Mark : "");
  contacts::AppendCsv(text, WithoutPassword(book, book.fields));
  for (const console::Row& each : entries) {
    console::Row cells = WithoutPassword(book, each);
    if (kForSpreadsheet) {
      for (std::string& cell : cells) cell = contacts::WithoutFormula(console::Utf8Text(cell));
    }
    contacts::AppendCsv(text, cells);
  }
  return text;
}

contacts::Contact ContactOf(const AddressBook& book, const console::Row& row) {
  if (book.target == quillkit::TargetFax) return {row[0], {}, row[1], row[2]};
  return {row[0], row[1], {}, {}};
}

std::string WriteLdif(const AddressBook& book, const std::vector<console::Row>& entries) {
  std::string text(contacts::kLdifHeading);
  for (const console::Row& each : entries) contacts::AppendLdif(text, ContactOf(book, each));
  return text;
}

std::string WriteVcards(const AddressBook& book, const std::vector<console::Row>& entries) {
  std::string text;
  for (console::Row each : entries) {
    std::ranges::transform(each, each.begin(), console::Utf8Text);
    contacts::AppendVcard(text, ContactOf(book, each));
  }
  return text;
}

std::string WriteJson(const AddressBook& book, const std::vector<console::Row>& entries) {
  console::Json file = {
      {"quillbox-entries", 1}, {"book", book.word}, {"entries", console::Json::array()}};
  for (const console::Row& each : entries) {
    file["entries"].push_back(
        console::ShownRow(WithoutPassword(book, book.fields), WithoutPassword(book, each)));
  }
  return file.dump(2) + '\n';
}

struct Format {
  const char* name;
  EntryFileWriter write;
  bool holdsAnyBook;  // not only books of addresses or numbers
};
constexpr Format kFormats[] = {{"csv", WriteCsv<false>, true},
                               {"ldif", WriteLdif, false},
                               {"vcard", WriteVcards, false},
                               {"json", WriteJson, true}};

}  // namespace

std::vector<std::string> EntryFileFormats() {
  std::vector<std::string> names;
  for (const Format& each : kFormats) names.emplace_back(each.name);
  return names;
}

EntryFileWriter EntryFileWriterFor(const std::string& format, const AddressBook& book,
                                   bool spreadsheet) {
  if (spreadsheet && format != "csv") throw UsageError("--spreadsheet requires --format csv");
  if (spreadsheet) return WriteCsv<true>;
  const Format& found = *std::ranges::find(kFormats, format, &Format::name);
  if (!found.holdsAnyBook && book.requiredFields < 2) {
    throw UsageError("the " + std::string(book.title) + " can be exported as csv or json only");
  }
  return found.write;
}

}  // namespace quillctl
