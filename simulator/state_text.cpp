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
constexpr std::size_t kMaxEntries = 1'000'000;  // in all books; an appliance holds fewer
constexpr std::size_t kLongestName = 31;
constexpr std::size_t kLongestBackupName = 400;  // the command that creates it is not longer

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

// Reads the lines after the heading.
class StateReader {
 public:
  explicit StateReader(Contents& newContents) : contents(newContents), store(&newContents.store) {}

  bool IsComplete() const { return isComplete; }

  // Returns a description of an error in the line, or an empty text.
  std::string Read(std::string_view text) {
    LineParser line(text);
    if (line.IsAtEnd()) return {};
    if (isComplete) return "unexpected line after the end";
    const std::string_view word = line.Word();
    if (word == "book") return ReadBook(line);
    if (word == "entry") return ReadEntry(line);
    if (word == "backup") return ReadBackup(line);
    isComplete = word == "end" && line.IsAtEnd();
    return isComplete ? "" : "not a line of a state file";
  }

 private:
  static std::optional<std::string> ReadText(LineParser& line, std::size_t limit) {
    const auto quoted = line.Quoted();
    return quoted ? Unescaped(*quoted, limit) : std::nullopt;
  }

  std::string ReadBook(LineParser& line) {
    const auto kind = line.Number();
    const auto name = ReadText(line, kLongestName);
    const auto user = ReadText(line, kLongestName);
    if (!kind || !name || !user || !line.IsAtEnd()) return "invalid book line";
    type = TypeOf(static_cast<BookKind>(*kind));
    bookName = EntryKey(*name);
    bookUser = *user;
    if (type == nullptr || type->kind == BookKind::kLog || !type->Accepts(bookName.name) ||
        type->isPrivate == bookUser.empty()) {
      return "unknown book";
    }
    const Status status = store->CreateBook(Path());
    const bool isThere = status == kNoError || status == kDuplicateBook;
    return isThere && (type->IsFixed() || store->Find(Path()) != nullptr) ? "" : "unknown book";
  }

  std::string ReadEntry(LineParser& line) {
    if (type == nullptr) return "entry outside a book";
    const auto record = ReadText(line, type->recordSize);
    if (!record || record->size() != type->recordSize || !line.IsAtEnd() ||
        ++entryCount > kMaxEntries || store->Put(Path(), record->data()) != kNoError) {
      return "invalid entry for this book";
    }
    return {};
  }

  std::string ReadBackup(LineParser& line) {
    const auto name = ReadText(line, kLongestBackupName);
    if (!name || !line.IsAtEnd()) return "invalid backup line";
    const auto [place, isNew] = contents.backups.try_emplace(*name);
    store = &place->second;
    type = nullptr;
    return isNew ? "" : "duplicate backup name";
  }

  BookPath Path() const { return {type->kind, bookName, bookUser}; }

  Contents& contents;
  Store* store;
  const BookType* type = nullptr;  // of the book that receives entries; null before the first book
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
  if (!lines.IsReadable()) return "cannot read the file";
  if (!heading || *heading != kHeading) return "line 1: not a state file";
  StateReader reader(contents);
  std::size_t number = 1;
  while (const auto line = lines.Next()) {
    ++number;
    const std::string fault = reader.Read(*line);
    if (!fault.empty()) return "line " + std::to_string(number) + ": " + fault;
  }
  if (lines.IsCut()) return "line " + std::to_string(number + 1) + ": line too long";
  if (!lines.IsReadable()) return "cannot read the whole file";
  return reader.IsComplete() ? "" : "truncated: the line \"end\" is missing";
}

}  // namespace quillbox
