#include "simulator/journal.h"

#include "simulator/book_type.h"
#include "simulator/database.h"

namespace quillbox {
namespace {

constexpr std::string_view kNull = "-";
constexpr std::string_view kPassword = "***";

// Writes a text unchanged, or "" for an empty one.
void AppendText(std::string& line, std::string_view text) {
  line += text.empty() ? std::string_view("\"\"") : text;
}

// Writes an address that is in the byte order of inet_addr.
void AppendAddress(std::string& line, std::uint32_t address) {
  for (int shift = 0; shift < 32; shift += 8) {
    if (shift != 0) line += '.';
    line += std::to_string((address >> shift) & 0xFF);
  }
}

}  // namespace

const Journal::Call* Journal::At(std::int32_t index) const {
  const auto place = static_cast<std::size_t>(index);
  return index >= 0 && place < calls.size() ? &calls[place] : nullptr;
}

void AppendArgument(std::string& line, const ABIdent* book) {
  if (book == nullptr) {
    line += kNull;
    return;
  }
  line += std::to_string(static_cast<std::uint32_t>(book->kind)) + ':';
  line += book->name.View();
}

void AppendArgument(std::string& line, const KeyRange* range) {
  if (range == nullptr) {
    line += kNull;
    return;
  }
  line += '[';
  line += range->first.View();
  line += '|';
  line += range->filter.View();
  line += '|' + std::to_string(range->skip) + ']';
}

void AppendArgument(std::string& line, const EntryKey* key) {
  if (key == nullptr) {
    line += kNull;
  } else {
    AppendText(line, key->name.View());
  }
}

void AppendArgument(std::string& line, const LoginRecord* login) {
  if (login == nullptr) {
    line += kNull;
    return;
  }
  AppendAddress(line, login->address);
  line += ' ';
  AppendText(line, login->user.View());
  line += ' ';
  AppendText(line, login->password.IsEmpty() ? std::string_view() : kPassword);
}

void AppendArgument(std::string& line, const IOCtlRecord* record) {
  if (record == nullptr) {
    line += kNull;
    return;
  }
  line += std::to_string(static_cast<std::int32_t>(record->code)) + ' ';
  line += std::to_string(record->value);
  if (record->code != IOCtlCode::kDatabaseCommand) return;
  line += ' ';
  line += record->text != nullptr ? CommandText(record->text) : kNull;
}

void AppendArgument(std::string& line, const char* text) {
  if (text == nullptr) {
    line += kNull;
  } else {
    AppendText(line, text);
  }
}

void AppendArgument(std::string& line, CountArgument argument) {
  line += argument.count != nullptr ? std::to_string(*argument.count) : std::string(kNull);
}

void AppendArgument(std::string& line, RecordArgument argument) {
  if (argument.record == nullptr) {
    line += kNull;
  } else {
    AppendText(line, NameOf(argument.record).name.View());
  }
}

void AppendArgument(std::string& line, std::int32_t number) {
  line += std::to_string(number);
}

void AppendArgument(std::string& line, std::uint32_t number) {
  line += std::to_string(number);
}

}  // namespace quillbox
