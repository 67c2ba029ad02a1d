#include "simulator/state_text.h"

#include <optional>
#include <ostream>
#include <string_view>

#include "simulator/escaped_text.h"
#include "simulator/line_parser.h"
#include "simulator/protocol.h"

namespace quillbox {
namespace {

constexpr std::string_view kHeading = "quillbox state 1";
constexpr std::size_t kMostEntries = 1'000'000;  // of all books; an appliance holds fewer
constexpr std::size_t kLongestName = 31;
constexpr std::size_t kLongestBackupName = 400;  // the command that makes it is no longer

std::string InQuotes(std::string_view bytes) {
  return '"' + Escaped(bytes, "\"") + '"';
}

void WriteStore(std::ostream& out, const Store& store) {
  store.ForEachBook([&out](const BookPath& path, const Book& book) {
    out << "book " << static_cast<std::uint32_t>(path.kind) << ' '
        << InQuotes(path.name.name.View()) << ' ' << InQuotes(path.user) << '\n';
    for (std::size_t i = 0; i < book.Size(); ++i) {
      const Record& record = book.At(i)->second;
      out << "entry " << InQuotes({record.data(), record.size()}) << '\n';
    }
  });
}

// Takes the lines behind the heading one by one.
class StateReader {
 public:
  explicit StateReader(Contents& newContents) : contents(newContents), store(&newContents.store) {}

  bool IsComplete() const { return isComplete; }

  // What is wrong with the line, or an empty text.
  std::string Take(std::string_view text) {
    LineParser line(text);
    if (line.IsAtEnd()) return {};
    if (isComplete) return "there is a line behind the end";
    const std::string_view word = line.Word();
    if (word == "book") return TakeBook(line);
    if (word == "entry") return TakeEntry(line);
    if (word == "backup") return TakeBackup(line);
    isComplete = word == "end" && line.IsAtEnd();
    return isComplete ? "" : "this is no line of a state";
  }

 private:
  static std::optional<std::string> TakeText(LineParser& line, std::size_t limit) {
    const auto quoted = line.Quoted();
    return quoted ? Unescaped(*quoted, limit) : std::nullopt;
  }

  std::string TakeBook(LineParser& line) {
    const auto kind = line.Number();
    const auto name = TakeText(line, kLongestName);
    const auto user = TakeText(line, kLongestName);
    if (!kind || !name || !user || !line.IsAtEnd()) return "this is no line of a book";
    type = TypeOf(static_cast<BookKind>(*kind));
    bookName = EntryKey(*name);
    bookUser = *user;
    if (type == nullptr || type->kind == BookKind::kLog || !type->Accepts(bookName.name) ||
        type->isPrivate == bookUser.empty()) {
      return "no appliance has this book";
    }
    const Status status = store->CreateBook(Path());
    const bool isThere = status == kNoError || status == kDuplicateBook;
    return isThere && (type->IsFixed() || store->Find(Path()) != nullptr)
               ? ""
               : "no appliance has this book";
  }

  std::string TakeEntry(LineParser& line) {
    if (type == nullptr) return "this entry stands in no book";
    const auto record = TakeText(line, type->recordSize);
    if (!record || record->size() != type->recordSize || !line.IsAtEnd() ||
        ++entryCount > kMostEntries || store->Put(Path(), record->data()) != kNoError) {
      return "this entry does not fit its book";
    }
    return {};
  }

  std::string TakeBackup(LineParser& line) {
    const auto name = TakeText(line, kLongestBackupName);
    if (!name || !line.IsAtEnd()) return "this is no line of a backup";
    const auto [place, isNew] = contents.backups.try_emplace(*name);
    store = &place->second;
    type = nullptr;
    return isNew ? "" : "there are two backups of this name";
  }

  BookPath Path() const { return {type->kind, bookName, bookUser}; }

  Contents& contents;
  Store* store;
  const BookType* type = nullptr;  // of the book that entries go into; null in front of the first
  EntryKey bookName;
  std::string bookUser;
  std::size_t entryCount = 0;
  bool isComplete = false;
};

}  // namespace

void WriteState(std::ostream& out, const Contents& contents) {
  out << kHeading << '\n';
  WriteStore(out, contents.store);
  for (const auto& [name, store] : contents.backups) {
    out << "backup " << InQuotes(name) << '\n';
    WriteStore(out, store);
  }
  out << "end\n";
}

std::string ReadState(TextLines& lines, Contents& contents) {
  const auto heading = lines.Next();
  if (!lines.IsReadable()) return "it cannot be read";
  if (!heading || *heading != kHeading) return "line 1: this is no state of an appliance";
  StateReader reader(contents);
  std::size_t number = 1;
  while (const auto line = lines.Next()) {
    ++number;
    const std::string fault = reader.Take(*line);
    if (!fault.empty()) return "line " + std::to_string(number) + ": " + fault;
  }
  if (lines.IsCut()) return "line " + std::to_string(number + 1) + ": this line is too long";
  if (!lines.IsReadable()) return "it cannot be read to its end";
  return reader.IsComplete() ? "" : "its last line is missing: it was cut short";
}

}  // namespace quillbox
