#include "import/convert_mail_server_export.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "import/conversion.h"
#include "import/field_splitter.h"
#include "import/script.h"
#include "import/text_routines.h"

namespace quillkit {
namespace {

constexpr std::string_view kRowWord = "Mailbox";
constexpr std::string_view kAddressMark = "SMTP:";

// The walk from behind the row word to the name: a cursor that three passes move on. A pass at a
// comma steps the cursor over it and leaves the splitter where it stands; any other takes the next
// field. Of a quoted field the cursor gets what the quotes hold, and the splitter goes on right
// behind the closing one, so that the pass after it finds the empty field up to the comma.
// False when the fields run out.
bool FindName(FieldSplitter& fields, TextSpan* name) {
  if (fields.IsUsedUp()) return false;
  TextSpan cursor = fields.Rest();
  for (int pass = 0; pass < 3; ++pass) {
    if (!cursor.empty() && cursor.front() == ',') {
      cursor = cursor.subspan(1);
      continue;
    }
    if (!fields.Next(',', &cursor)) return false;
    if (cursor.empty() || cursor.front() != '"') continue;
    fields.MoveTo(cursor.data() + 1);
    fields.Next('"', &cursor);
  }
  *name = cursor;
  return true;
}

// What stands between "SMTP:" in `text` and the end of the address. False when there is no address.
bool FindAddress(std::string_view text, std::string_view* address) {
  const std::size_t mark = text.find(kAddressMark);
  if (mark == text.npos) return false;
  text.remove_prefix(mark + kAddressMark.size());
  const auto end = std::find_if(text.begin(), text.end(),
                                [](char c) { return c == '%' || c == ',' || c == '"'; });
  *address = text.substr(0, static_cast<std::size_t>(end - text.begin()));
  return true;
}

void TakeRow(TextSpan line, ScriptWriter& script, bool isAdmin) {
  FieldSplitter fields(line);
  TextSpan field;
  if (!fields.Next(',', &field) || View(field) != kRowWord) return;
  TextSpan name;
  if (!FindName(fields, &name)) return;

  // One character ends the name; nothing follows where that is the line's end.
  const std::size_t nameEnd = static_cast<std::size_t>(name.data() - line.data()) + name.size();
  if (nameEnd == line.size()) return;
  std::string_view address;
  if (!FindAddress(View(line).substr(nameEnd + 1), &address)) return;
  const std::string_view values[] = {View(name), address};
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
