#include "simulator/batch.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <optional>
#include <string>

#include "simulator/book_type.h"
#include "simulator/line_parser.h"
#include "simulator/protocol.h"
#include "simulator/text_lines.h"

namespace quillbox {
namespace {

struct BatchBook {
  std::string_view word;
  BookKind kind;
};
constexpr BatchBook kBatchBooks[] = {{"emailab", BookKind::kEmail},
                                     {"faxab", BookKind::kFax},
                                     {"printersab", BookKind::kPrinters},
                                     {"usersab", BookKind::kUsers}};

// The type of the book with this name in scripts, or null.
const BookType* ScriptBookOf(std::string_view word) {
  for (const BatchBook& book : kBatchBooks) {
    if (book.word == word) return TypeOf(book.kind);
  }
  return nullptr;
}

// Stores a text in a field of a record. Returns 0, or 7 if it does not fit.
Status SetField(std::string& record, const TextField& field, std::string_view text) {
  if (text.size() >= field.size) return kInvalidField;
  std::copy(text.begin(), text.end(), record.data() + field.offset);
  return kNoError;
}

// Stores the numbers that follow the texts of a user. Returns 0; 17 if they cannot be read; 7 if
// one is too large.
Status SetNumbers(std::string& record, LineParser& line) {
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

Status SetEntry(Store& store, const Limits& limits, LineParser& line) {
  const BookType* const type = ScriptBookOf(line.Word());
  if (type == nullptr) return kBadCommand;
  std::string record(type->recordSize, '\0');
  Status fit = kNoError;  // returned only if the whole line can be parsed
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
  return fit != kNoError ? fit : store.Put({type->kind, {}, {}}, record.data(), limits);
}

Status ClearBook(Store& store, LineParser& line) {
  const BookType* const type = ScriptBookOf(line.Word());
  if (type == nullptr || !line.IsAtEnd()) return kBadCommand;
  return store.ClearBook({type->kind, {}, {}}, {});
}

Status RunLine(Store& store, const Limits& limits, std::string_view text) {
  LineParser line(text);
  const std::string_view command = line.Word();
  if (command == "CA") return ClearBook(store, line);
  return command == "SE" ? SetEntry(store, limits, line) : kBadCommand;
}

bool IsBlank(std::string_view line) {
  return LineParser(line).IsAtEnd();
}

// Returns whether the line contains no NUL, which would end a text in it.
bool IsText(std::string_view line) {
  return line.find('\0') == std::string_view::npos;
}

Status RunCommands(Store& store, const Limits& limits, TextLines& script) {
  while (const auto line = script.Next()) {
    if (IsBlank(*line)) continue;
    const Status status = IsText(*line) ? RunLine(store, limits, *line) : kBadCommand;
    if (status != kNoError) return status;
  }
  return kNoError;
}

Status RunPairs(Store& store, const Limits& limits, std::string_view user, TextLines& script) {
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
    const Status status = store.Put(path, &entry, limits);
    if (status != kNoError) return status;
  }
  return kNoError;
}

}  // namespace

Status RunBatch(Store& store, const Limits& limits, std::string_view user, const char* path) {
  TextLines script(path);
  if (!script.IsReadable()) return kBadCommand;
  const Status status = user == kAdministratorName ? RunCommands(store, limits, script)
                                                   : RunPairs(store, limits, user, script);
  if (status != kNoError) return status;
  if (!script.IsReadable()) return kBadCommand;
  return script.IsCut() ? kInvalidField : kNoError;
}

}  // namespace quillbox
