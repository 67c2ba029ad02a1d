#include "quillctl/entry_file.h"

#include <algorithm>
#include <utility>

#include "contacts/encoding.h"
#include "contacts/writers.h"
#include "quillctl/failures.h"
#include "quillctl/json_output.h"
#include "quillctl/text_file.h"

namespace quillctl {
namespace {

Row WithoutPassword(const AddressBook& book, Row row) {
  if (book.secretField < row.size()) {
    row.erase(row.begin() + static_cast<std::ptrdiff_t>(book.secretField));
  }
  return row;
}

class CsvFile : public EntryFile {
 public:
  CsvFile(const AddressBook& newBook, bool spreadsheet)
      : book(newBook), forSpreadsheet(spreadsheet), text(spreadsheet ? contacts::kUtf8Mark : "") {
    contacts::AppendCsv(text, WithoutPassword(book, book.fields));
  }

  void Add(const Row& row) override {
    Row cells = WithoutPassword(book, row);
    if (forSpreadsheet) {
      for (std::string& each : cells) each = contacts::WithoutFormula(Utf8Text(each));
    }
    contacts::AppendCsv(text, cells);
  }

  std::string Text() override { return std::move(text); }

 private:
  const AddressBook& book;
  bool forSpreadsheet;
  std::string text;
};

contacts::Contact ContactOf(const AddressBook& book, const Row& row) {
  if (book.target == quillkit::TargetFax) return {row[0], {}, row[1], row[2]};
  return {row[0], row[1], {}, {}};
}

class LdifFile : public EntryFile {
 public:
  explicit LdifFile(const AddressBook& newBook) : book(newBook) {}

  void Add(const Row& row) override { contacts::AppendLdif(text, ContactOf(book, row)); }
  std::string Text() override { return std::move(text); }

 private:
  const AddressBook& book;
  std::string text{contacts::kLdifHeading};
};

class VcardFile : public EntryFile {
 public:
  explicit VcardFile(const AddressBook& newBook) : book(newBook) {}

  void Add(const Row& row) override {
    Row utf8 = row;
    std::ranges::transform(row, utf8.begin(), Utf8Text);
    contacts::AppendVcard(text, ContactOf(book, utf8));
  }
  std::string Text() override { return std::move(text); }

 private:
  const AddressBook& book;
  std::string text;
};

class JsonFile : public EntryFile {
 public:
  explicit JsonFile(const AddressBook& newBook) : book(newBook) {}

  void Add(const Row& row) override {
    entries.push_back(ShownRow(WithoutPassword(book, book.fields), WithoutPassword(book, row)));
  }

  std::string Text() override {
    Json file = {{"quillbox-entries", 1}, {"book", book.word}};
    file["entries"] = std::move(entries);
    return file.dump(2) + '\n';
  }

 private:
  const AddressBook& book;
  Json entries = Json::array();
};

}  // namespace

std::vector<std::string> EntryFileFormats() {
  return {"csv", "ldif", "vcard", "json"};
}

std::unique_ptr<EntryFile> MakeEntryFile(const std::string& format, const AddressBook& book,
                                         bool spreadsheet) {
  if (spreadsheet && format != "csv") throw UsageError("--spreadsheet requires --format csv");
  if (format == "csv") return std::make_unique<CsvFile>(book, spreadsheet);
  if (format == "json") return std::make_unique<JsonFile>(book);
  if (book.requiredFields < 2) {
    throw UsageError("the " + std::string(book.title) + " can be exported as csv or json only");
  }
  if (format == "ldif") return std::make_unique<LdifFile>(book);
  return std::make_unique<VcardFile>(book);
}

}  // namespace quillctl
