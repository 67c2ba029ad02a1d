#include "simulator/state_text.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "simulator/escaped_text.h"
#include "simulator/line_parser.h"
#include "simulator/protocol.h"

namespace quillbox {
namespace {

constexpr std::string_view kHeadings[] = {"quillbox state 2", "quillbox state 1"};
constexpr std::string_view kEnd = "end\n";
constexpr std::size_t kMaxEntries = 5'000'000;  // in all books; an appliance holds fewer
constexpr std::size_t kLongestName = 31;
constexpr std::size_t kLongestBackupName = 400;  // the command that creates it is not longer

std::string InQuotes(std::string_view bytes) {
  return '"' + Escaped(bytes, "\"") + '"';
}

void AppendBook(std::string& text, std::string_view word, const BookPath& path) {
  text += std::string(word) + ' ' + std::to_string(static_cast<std::uint32_t>(path.kind)) + ' ' +
          InQuotes(path.name.name.View()) + ' ' + InQuotes(path.user) + '\n';
}

// The record of an account without its password.
Record WithoutPassword(const Record& record) {
  CUserEntry account;
  record.CopyTo(&account);
  account.password = decltype(account.password)();
  account.SetPassword(Store::InitialPassword(account.name.View()));
  return Record({reinterpret_cast<const char*>(&account), sizeof account});
}

void AppendEntry(std::string& text, const Record& record) {
  text += "entry " + InQuotes(record.Bytes()) + '\n';
}

void AppendEntries(std::string& text, const Book& book) {
  for (const auto& [name, record] : book) AppendEntry(text, record);
}

void AppendStore(std::string& text, const Store& store, Passwords passwords) {
  store.ForEachBook([&](const BookPath& path, const Book& book) {
    if (book.Size() == 0 && TypeOf(path.kind)->IsFixed()) return;  // it always exists
    AppendBook(text, "book", path);
    if (passwords == Passwords::kShown || path.kind != BookKind::kUsers) {
      AppendEntries(text, book);
      return;
    }
    for (const auto& [name, record] : book) AppendEntry(text, WithoutPassword(record));
  });
}

void AppendPlace(std::string& text, Store& store, const StoreChanges::Place& place) {
  const Book* const book = store.Find(place.Path());
  if (book == nullptr) {
    AppendBook(text, "drop", place.Path());
    return;
  }
  AppendBook(text, "book", place.Path());
  if (!place.entry) {
    text += "clear\n";
    AppendEntries(text, *book);
    return;
  }
  const Record* const record = book->Find(*place.entry);
  if (record != nullptr) {
    AppendEntry(text, *record);
  } else {
    text += "remove " + InQuotes(place.entry->name.View()) + '\n';
  }
}

// Removes the first line of the text and returns it without its line end.
std::string_view TakeLine(std::string_view& text) {
  const std::size_t end = std::min(text.find('\n'), text.size());
  std::string_view line = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

// Reads the lines after the heading.
class StateReader {
 public:
  explicit StateReader(Contents& newContents) : contents(newContents), store(&newContents.store) {}

  // Returns the description of the first error, or an empty text. `line` is the number of the line
  // before the text.
  std::string ReadLines(std::string_view text, std::size_t line) {
    while (!text.empty()) {
      ++line;
      const std::string fault = Read(TakeLine(text));
      if (!fault.empty()) return "line " + std::to_string(line) + ": " + fault;
    }
    return {};
  }

 private:
  std::string Read(std::string_view text) {
    LineParser line(text);
    if (line.IsAtEnd()) return {};
    const std::string_view word = line.Word();
    if (word == "entry") return ReadEntry(line);
    if (word == "book") return ReadBook(line);
    if (word == "drop") return ReadDrop(line);
    if (word == "remove") return ReadRemove(line);
    if (word == "backup") return ReadBackup(line);
    if ((word != "end" && word != "clear") || !line.IsAtEnd()) return "not a line of a state file";
    return word == "end" ? ReadEnd() : ReadClear();
  }

  static std::optional<std::string> ReadText(LineParser& line, std::size_t limit) {
    const auto quoted = line.Quoted();
    return quoted ? Unescaped(*quoted, limit) : std::nullopt;
  }

  // Reads the rest of a line that names a book.
  std::string ReadPath(LineParser& line) {
    book = nullptr;
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
    return {};
  }

  std::string ReadBook(LineParser& line) {
    std::string fault = ReadPath(line);
    if (!fault.empty()) return fault;
    if (!type->IsFixed()) store->CreateBook(Path());
    book = store->Find(Path());
    return book != nullptr ? "" : "unknown book";
  }

  std::string ReadDrop(LineParser& line) {
    std::string fault = ReadPath(line);
    if (fault.empty()) store->DeleteBook(Path());
    return fault;
  }

  std::string ReadEntry(LineParser& line) {
    if (book == nullptr) return "entry outside a book";
    const auto record = ReadText(line, type->recordSize);
    if (!record || record->size() != type->recordSize || !line.IsAtEnd() ||
        ++entryCount > kMaxEntries || store->PutInto(*book, Path(), record->data()) != kNoError) {
      return "invalid entry for this book";
    }
    return {};
  }

  std::string ReadRemove(LineParser& line) {
    const auto name = ReadText(line, kLongestName);
    if (book == nullptr || !name || !line.IsAtEnd()) return "invalid removal of an entry";
    store->DeleteEntry(Path(), EntryKey(*name));
    return {};
  }

  std::string ReadClear() {
    if (book == nullptr) return "nothing to clear outside a book";
    store->ClearBook(Path(), {});
    return {};
  }

  std::string ReadBackup(LineParser& line) {
    const auto name = ReadText(line, kLongestBackupName);
    if (!name || !line.IsAtEnd()) return "invalid backup line";
    const auto [place, isNew] = contents.backups.try_emplace(*name);
    store = &place->second;
    book = nullptr;
    return isNew ? "" : "duplicate backup name";
  }

  // The next change begins with the books of the appliance.
  std::string ReadEnd() {
    store = &contents.store;
    book = nullptr;
    return {};
  }

  BookPath Path() const { return {type->kind, bookName, bookUser}; }

  Contents& contents;
  Store* store;
  Book* book = nullptr;  // that receives entries
  const BookType* type = nullptr;
  EntryKey bookName;
  std::string bookUser;
  std::size_t entryCount = 0;
};

}  // namespace

std::string StateText(const Contents& contents, Passwords passwords) {
  std::string text = std::string(kHeadings[0]) + '\n';
  AppendStore(text, contents.store, passwords);
  for (const auto& [name, store] : contents.backups) {
    text += "backup " + InQuotes(name) + '\n';
    AppendStore(text, store, passwords);
  }
  text += kEnd;
  return text;
}

std::string ChangeText(Store& store, const StoreChanges& changes) {
  std::string text;
  for (const StoreChanges::Place& each : changes.places) AppendPlace(text, store, each);
  text += kEnd;
  return text;
}

std::size_t CompleteSize(std::string_view text) {
  std::size_t size = text.size();
  while (size != 0) {
    const std::size_t begin = size > 1 ? text.rfind('\n', size - 2) + 1 : 0;
    const std::string_view line = text.substr(begin, size - begin);
    if (line == kEnd || line == "end\r\n" || (line == "end" && size == text.size())) return size;
    size = begin;
  }
  return 0;
}

std::string ReadState(std::string_view text, Contents& contents) {
  std::string_view rest = text.substr(0, CompleteSize(text));
  std::string_view all = text;
  if (std::ranges::count(kHeadings, TakeLine(all)) == 0) return "line 1: not a state file";
  TakeLine(rest);
  StateReader reader(contents);
  // Without a complete state, the first error of the text is the better description.
  const bool isComplete = CompleteSize(text) != 0;
  std::string fault = reader.ReadLines(isComplete ? rest : all, 1);
  return !fault.empty() || isComplete ? fault : "truncated: the line \"end\" is missing";
}

std::string ReadChanges(std::string_view text, Contents& contents) {
  return StateReader(contents).ReadLines(text, 0);
}

}  // namespace quillbox
