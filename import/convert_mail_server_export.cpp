#include "import/convert_mail_server_export.h"

#include <algorithm>
#include <cstring>
#include <string_view>

#include "import/conversion.h"
#include "import/script.h"
#include "import/text_routines.h"

namespace quillkit {
namespace {

constexpr std::string_view kRowWord = "Mailbox";
constexpr std::string_view kAddressMark = "SMTP:";

// The text between the quotes of a field that NextQuotedField gave, and the splitting goes on right
// behind the closing one: so the field after it is the empty one up to the separator.
// `end` is the end of the field's line.
char* SplitInsideQuotes(char* field, const char* end) {
  char* const fieldEnd = field + std::strlen(field);
  if (fieldEnd != end) *fieldEnd = ',';
  return NextQuotedField(field + 1, '"');
}

// Splits a row and gives its name, or null when the row does not count or ends before its name.
// Three passes move a cursor from behind the row word to the name. One that finds it at a comma
// steps over that and leaves the splitting where it stands; any other takes the next field.
char* FindName(TextSpan line) {
  const char* const end = line.data() + line.size();
  char* cursor = NextQuotedField(line.data(), ',');
  if (cursor == nullptr || cursor != kRowWord) return nullptr;
  cursor += kRowWord.size();
  if (cursor == end) return nullptr;
  ++cursor;
  for (int pass = 0; pass < 3; ++pass) {
    if (*cursor == ',') {
      ++cursor;
      continue;
    }
    cursor = NextQuotedField(nullptr, ',');
    if (cursor == nullptr) return nullptr;
    if (*cursor == '"') cursor = SplitInsideQuotes(cursor, end);
  }
  return cursor;
}

std::size_t AddressLength(std::string_view text) {
  const auto ends = [](char c) { return c == '%' || c == ',' || c == '"'; };
  return static_cast<std::size_t>(std::find_if(text.begin(), text.end(), ends) - text.begin());
}

// Stores what follows the first "SMTP:" in `text`, up to where an address ends. False without one.
bool FindAddress(std::string_view text, std::string_view* address) {
  const std::size_t mark = text.find(kAddressMark);
  if (mark == text.npos) return false;
  text.remove_prefix(mark + kAddressMark.size());
  *address = text.substr(0, AddressLength(text));
  return true;
}

void TakeRow(TextSpan line, ScriptWriter& script, bool isAdmin) {
  const char* const found = FindName(line);
  if (found == nullptr) return;
  const std::string_view name = found;
  // Behind the name's NUL; there is nothing where that is the line's own.
  std::string_view rest = View(line).substr(static_cast<std::size_t>(name.end() - line.data()));
  if (rest.empty()) return;
  rest.remove_prefix(1);
  std::string_view address;
  if (!FindAddress(rest, &address)) return;
  const std::string_view values[] = {name, address};
  WriteEntry(script, EmailScriptBook(), isAdmin, values);
}

}  // namespace

std::int32_t ConvertMailServerExport(const char* sourcePath, const char* scriptPath,
                                     std::int32_t clearFirst, std::int32_t isAdmin,
                                     WindowHandle pumpWindow, std::int32_t restoreCursor) {
  Conversion conversion;
  const std::int32_t failure = conversion.Open(sourcePath, scriptPath);
  if (failure != kConverted) return failure;
  if (isAdmin != 0 && clearFirst != 0) conversion.script().Append(kWordlessClearLine);

  for (TextSpan line; conversion.NextLine(&line);) {
    PumpPendingMessages(pumpWindow, restoreCursor);
    TakeRow(line, conversion.script(), isAdmin != 0);
  }
  return conversion.Close();
}

}  // namespace quillkit
