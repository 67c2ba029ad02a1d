#include "examples/import_command.h"

#include <algorithm>
#include <filesystem>
#include <iostream>

#include "examples/column_map.h"
#include "examples/displayed_text.h"
#include "examples/failures.h"
#include "examples/stored_books.h"

namespace quillctl {
namespace {

struct ImportFormat {
  const char* word;
  std::uint32_t selector;  // ImportOptions::format
};

constexpr ImportFormat kFormats[] = {
    {"csv", quillkit::ImportFormatDelimited},
    {"directory", quillkit::ImportFormatDirectory},
    {"mail", quillkit::ImportFormatMailServer},
    {"script", quillkit::ImportFormatScript},
};

using Contents = std::vector<std::vector<Row>>;

// What the books hold, one after the other.
Contents ReadAll(const StoredBooks& stored, std::span<const AddressBook> books,
                 const std::string& user) {
  Contents contents;
  for (const AddressBook& each : books) contents.push_back(stored.Read(each, user));
  return contents;
}

// Drops the rows that were there before. Both are in the book's order.
std::vector<Row> Arrived(std::vector<Row> now, const std::vector<Row>& before) {
  std::erase_if(now,
                [&](const Row& row) { return std::ranges::find(before, row) != before.end(); });
  return now;
}

void ShowBook(const AddressBook& book, const std::vector<Row>& before, const std::vector<Row>& now,
              std::size_t shown) {
  std::vector<Row> arrived = Arrived(now, before);
  std::cout << "The " << book.title << " held " << before.size() << " entries and holds "
            << now.size() << "; " << arrived.size() << " are new or changed";
  arrived.resize(std::min(arrived.size(), shown));
  std::cout << (arrived.empty() ? ".\n" : ", beginning with:\n");
  if (arrived.empty()) return;
  TextTable table(book.fields);
  for (Row& row : arrived) table.AddRow(std::move(row));
  table.Print(std::cout);
}

std::string WithoutFolder(const std::string& path) {
  const std::string name = std::filesystem::path(path).filename().string();
  return Quoted(name.empty() ? path : name);
}

}  // namespace

std::vector<std::string> ImportFormatWords() {
  std::vector<std::string> words;
  for (const ImportFormat& each : kFormats) words.emplace_back(each.word);
  return words;
}

Import::Import(const ImportRequest& request) : file_(request.file), shown_(request.shown) {
  quillkit::ImportOptions& options = mapped_.options;
  for (const ImportFormat& each : kFormats) {
    if (each.word == request.format) options.format = each.selector;
  }
  options.clearFirst = request.clearFirst ? 1 : 0;
  if (options.format == quillkit::ImportFormatDelimited) {
    TakeDelimited(request);
    return;
  }

  const bool anyBook = options.format == quillkit::ImportFormatScript;
  if (request.skipHeader || !request.target.empty() || !request.map.empty()) {
    throw UsageError("--target, --map and --skip-header are for the format csv");
  }
  if (anyBook && request.clearFirst) throw UsageError("--clear has no effect on a script");
  books_ = anyBook ? PublicBooks() : PublicBooks().first(1);
}

void Import::TakeDelimited(const ImportRequest& request) {
  books_ = BookOfWord(request.target.empty() ? "email" : request.target);
  const AddressBook& book = books_.front();
  if (request.map.empty()) throw UsageError("the format csv needs a --map, as in --map 2,10");
  const std::vector<std::int32_t> columns = ParseColumnMap(request.map);
  if (columns.size() != book.fields.size()) {
    throw UsageError("a map for the " + std::string(book.title) + " has " +
                     std::to_string(book.fields.size()) + " columns");
  }
  quillkit::ImportOptions& options = mapped_.options;
  options.skipHeader = request.skipHeader ? 1 : 0;
  options.targetBook = book.target;
  options.columnCount = static_cast<std::int32_t>(columns.size());
  options.columnMap[0] = columns.front();
  std::copy(columns.begin() + 1, columns.end(), mapped_.moreColumns);
}

void Import::Run(const Session& session) const {
  const bool isAdmin = quillkit::IsAdminConnected(session.scanner()) != 0;
  const std::span<const AddressBook> books = isAdmin ? books_ : PrivateBook();
  const StoredBooks stored;
  Contents before;
  if (stored.CanLook()) before = ReadAll(stored, books, session.user());

  RequireGood(quillkit::ImportAddressBook(session.scanner(), file_.c_str(), &mapped_.options),
              "import " + WithoutFolder(file_));
  std::cout << "Imported " << WithoutFolder(file_) << ".\n";
  if (!stored.CanLook()) {
    std::cout << "What arrived cannot be shown: this server library is not the simulated one.\n";
    return;
  }
  const Contents now = ReadAll(stored, books, session.user());
  for (std::size_t i = 0; i < books.size(); ++i) ShowBook(books[i], before[i], now[i], shown_);
}

}  // namespace quillctl
