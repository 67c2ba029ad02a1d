#include "simulator/batch.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <iterator>
#include <optional>
#include <vector>

#include "simulator/book_type.h"
#include "simulator/status_codes.h"

namespace quillkit {
namespace {

constexpr std::string_view kBlanks = " \t";

// The lines of a script, none longer than a line can usefully be.
class ScriptLines {
 public:
  explicit ScriptLines(const char* path) : file_(path, std::ios::binary) {}

  // Whether the file could be opened and read so far.
  bool IsReadable() const { return file_.is_open() && !file_.bad(); }

  // The next line without its end, good until the next call; nothing at the end of the file. A line
  // that is too long for any record ends the script: IsCut() then holds.
  std::optional<std::string_view> Next() {
    if (!file_.getline(buffer_.data(), std::ssize(buffer_))) {
      isCut_ = !file_.eof() && !file_.bad();
      return std::nullopt;
    }
    auto length = static_cast<std::size_t>(file_.gcount());
    if (!file_.eof()) --length;  // the LF counts as taken
    std::string_view line(buffer_.data(), length);
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
  }

  bool IsCut() const { return isCut_; }

 private:
  std::ifstream file_;
  std::array<char, 4096> buffer_{};
  bool isCut_ = false;
};

// Takes a line to pieces from its front.
class LineParser {
 public:
  explicit LineParser(std::string_view line) : rest_(line) { SkipBlanks(); }

  bool IsAtEnd() const { return rest_.empty(); }

  // The characters up to the next blank; empty at the end.
  std::string_view Word() {
    const std::string_view word = rest_.substr(0, rest_.find_first_of(kBlanks));
    Remove(word.size());
    return word;
  }

  // A text in double quotes, which a blank or the end has to follow.
  std::optional<std::string_view> Quoted() {
    if (!rest_.starts_with('"')) return std::nullopt;
    const std::size_t end = rest_.find('"', 1);
    if (end == std::string_view::npos) return std::nullopt;
    const std::string_view text = rest_.substr(1, end - 1);
    const std::string_view behind = rest_.substr(end + 1);
    if (!behind.empty() && kBlanks.find(behind.front()) == std::string_view::npos) {
      return std::nullopt;
    }
    Remove(end + 1);
    return text;
  }

  // A decimal number.
  std::optional<std::uint32_t> Number() {
    const std::string_view word = Word();
    std::uint32_t number = 0;
    const char* const end = word.data() + word.size();
    const auto [stop, error] = std::from_chars(word.data(), end, number);
    if (error != std::errc() || stop != end) return std::nullopt;
    return number;
  }

 private:
  void Remove(std::size_t count) {
    rest_.remove_prefix(count);
    SkipBlanks();
  }

  void SkipBlanks() {
    rest_.remove_prefix(std::min(rest_.find_first_not_of(kBlanks), rest_.size()));
  }

  std::string_view rest_;
};

struct ScriptBook {
  std::string_view word;
  BookKind kind;
};
constexpr ScriptBook kScriptBooks[] = {{"emailab", BookKind::kEmail},
                                       {"faxab", BookKind::kFax},
                                       {"printersab", BookKind::kPrinters},
                                       {"usersab", BookKind::kUsers}};

// The type of the book that a script names so, or null.
const BookType* ScriptBookOf(std::string_view word) {
  for (const ScriptBook& book : kScriptBooks) {
    if (book.word == word) return TypeOf(book.kind);
  }
  return nullptr;
}

// Stores a text in a record's field: 0, or 7 when it does not fit.
Status SetField(Record& record, const TextField& field, std::string_view text) {
  if (text.size() >= field.size) return kInvalidField;
  std::copy(text.begin(), text.end(), record.data() + field.offset);
  return kNoError;
}

// Stores the numbers behind a user's texts: 17 when they cannot be read, else 7 when one is too
// high.
Status SetNumbers(Record& record, LineParser& line) {
  constexpr std::uint32_t kHighest[] = {1, 1, 15, 15};
  std::uint32_t numbers[std::size(kHighest)] = {};
  Status status = kNoError;
  for (std::size_t i = 0; i < std::size(numbers); ++i) {
    const std::optional<std::uint32_t> number = line.Number();
    if (!number) return kBadCommand;
    if (*number > kHighest[i]) status = kInvalidField;
    numbers[i] = *number;
  }
  CUserEntry user;
  std::memcpy(&user, record.data(), sizeof user);
  user.flags = numbers[0] | numbers[1] << 4;
  user.nibbles = numbers[2] << 4 | numbers[3];
  std::memcpy(record.data(), &user, sizeof user);
  return status;
}

Status SetEntry(Store& store, LineParser& line) {
  const BookType* const type = ScriptBookOf(line.Word());
  if (type == nullptr) return kBadCommand;
  Record record(type->recordSize);
  Status fit = kNoError;  // told only of a line that can be read to its end
  for (const TextField& field : type->texts) {
    const auto text = line.Quoted();
    if (!text) return kBadCommand;
    if (SetField(record, field, *text) != kNoError) fit = kInvalidField;
  }
  if (type->kind == BookKind::kUsers) {
    const Status status = SetNumbers(record, line);
    if (status == kBadCommand) return status;
    if (status != kNoError) fit = status;
  }
  if (!line.IsAtEnd()) return kBadCommand;
  return fit != kNoError ? fit : store.Put({type->kind, {}, {}}, record.data());
}

Status ClearBook(Store& store, LineParser& line) {
  const BookType* const type = ScriptBookOf(line.Word());
  if (type == nullptr || !line.IsAtEnd()) return kBadCommand;
  return store.ClearBook({type->kind, {}, {}}, {});
}

Status RunLine(Store& store, std::string_view text) {
  LineParser line(text);
  const std::string_view command = line.Word();
  if (command == "CA") return ClearBook(store, line);
  return command == "SE" ? SetEntry(store, line) : kBadCommand;
}

bool IsBlank(std::string_view line) {
  return line.find_first_not_of(kBlanks) == std::string_view::npos;
}

// Whether no character ends a text before its line does.
bool IsText(std::string_view line) {
  return line.find('\0') == std::string_view::npos;
}

Status RunCommands(Store& store, ScriptLines& script) {
  while (const auto line = script.Next()) {
    if (IsBlank(*line)) continue;
    const Status status = IsText(*line) ? RunLine(store, *line) : kBadCommand;
    if (status != kNoError) return status;
  }
  return kNoError;
}

Status RunPairs(Store& store, std::string_view user, ScriptLines& script) {
  const BookPath path{BookKind::kPrivateEmail, {}, user};
  while (const auto name = script.Next()) {
    if (IsBlank(*name)) continue;
    CEmailEntry entry;
    if (!IsText(*name)) return kBadCommand;
    if (entry.SetName(*name) == 0) return kInvalidField;
    const auto address = script.Next();
    if (script.IsCut()) break;
    if (!address || !IsText(*address)) return kBadCommand;
    if (entry.SetAddress(*address) == 0) return kInvalidField;
    const Status status = store.Put(path, &entry);
    if (status != kNoError) return status;
  }
  return kNoError;
}

}  // namespace

Status RunBatch(Store& store, std::string_view user, const char* path) {
  ScriptLines script(path);
  if (!script.IsReadable()) return kBadCommand;
  const Status status =
      user == kAdministratorName ? RunCommands(store, script) : RunPairs(store, user, script);
  if (status != kNoError) return status;
  if (!script.IsReadable()) return kBadCommand;
  return script.IsCut() ? kInvalidField : kNoError;
}

}  // namespace quillkit
