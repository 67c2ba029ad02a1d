#include "import/convert_mail_server_export.h"

#include <string_view>

#include "import/conversion.h"
#include "import/script.h"
#include "import/text_routines.h"

namespace quillkit {
namespace {

constexpr std::string_view kRowWord = "Mailbox";
constexpr std::string_view kAddressMark = "SMTP:";

char* End(TextSpan text) {
  return text.data() + text.size();
}

bool BeginsWith(TextSpan text, char c) {
  return !text.empty() && text.front() == c;
}

// Returns the name of a row, or null if the row ends before it. `rest` is the row without its first
// field. Makes three passes. A pass at a comma skips it and does not move the splitter; any other
// pass reads the next field. After a quoted field, the splitter is after the closing quote, so the
// next field is the empty one before the separator.
TextSpan NameField(TextSpan rest) {
  FieldSplitter fields(rest);
  TextSpan name = rest;
  for (int pass = 0; pass < 3; ++pass) {
    if (BeginsWith(name, ',')) {
      name = name.subspan(1);
      continue;
    }
    name = fields.NextQuotedField(',').text;
    if (name.data() == nullptr) return {};
    if (!BeginsWith(name, '"')) continue;
    fields.Restart({name.data() + 1, End(rest)});
    name = fields.NextQuotedField('"').text;
  }
  return name;
}

// Returns the address after the first "SMTP:" in `text`, or null without one. It ends at the first
// percent sign, comma or double quote. Three searches of the C library are faster than one pass
// that compares each character three times.
std::string_view FindAddress(std::string_view text) {
  const std::size_t mark = text.find(kAddressMark);
  if (mark == text.npos) return {};
  text.remove_prefix(mark + kAddressMark.size());
  for (const char end : {'%', ',', '"'}) text = text.substr(0, text.find(end));
  return text;
}

// The parts of a row. Missing parts are null.
struct MailServerRow {
  std::string_view name;  // also null in a row that ends with its name
  std::string_view address;
};

// Splits a row, with its newline if it has one. The values point into `line`, which is changed.
MailServerRow SplitRow(TextSpan line) {
  MailServerRow row;
  if (!View(line).starts_with(kRowWord)) return row;
  const TextSpan rest = line.subspan(kRowWord.size());
  if (!BeginsWith(rest, ',')) return row;
  const TextSpan name = NameField(rest.subspan(1));
  if (name.data() == nullptr || End(name) == End(line)) return row;
  row.name = View(name);
  row.address = FindAddress({End(name) + 1, End(line)});
  return row;
}

}  // namespace

std::int32_t ConvertMailServerExport(ConversionJob job) {
  Conversion conversion;
  const std::int32_t failure = conversion.Open(&job);
  if (failure != kConverted) return failure;
  if (job.isAdmin && job.clearFirst) conversion.script().Append(kWordlessClearLine);

  for (TextSpan line; conversion.NextLine(&line);) {
    PumpPendingMessages(job.pumpWindow, job.restoreCursor);
    const MailServerRow row = SplitRow(line);
    const std::string_view values[] = {row.name, row.address};
    if (row.address.data() != nullptr) {
      conversion.AddEntry(EmailScriptBook(), values);
    } else {
      conversion.Report();
    }
  }
  return conversion.Close();
}

}  // namespace quillkit
