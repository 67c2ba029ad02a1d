#include "simulator/journal_file.h"

#include <filesystem>
#include <system_error>

#include "simulator/escaped_text.h"
#include "simulator/system/file_lock.h"
#include "simulator/warning.h"

namespace quillbox {
namespace {

// A text as a JSON string. Each byte is a character of Latin-1.
std::string JsonString(std::string_view text) {
  std::string json = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') {
      json += {'\\', c};
    } else if (c >= ' ' && c <= '~') {
      json += c;
    } else {
      json += "\\u00" + HexadecimalByte(c);
    }
  }
  return json + '"';
}

std::string TextLine(const JournalLine& line) {
  std::string text = Escaped(line.call) + " = " + std::to_string(line.status);
  return line.fault.empty() ? text : text + "; " + Escaped(line.fault);
}

std::string JsonLine(const JournalLine& line) {
  const std::size_t end = line.call.find(' ');
  const std::string_view arguments =
      end == std::string_view::npos ? std::string_view() : line.call.substr(end + 1);
  std::string json = "{\"time\":" + JsonString(line.time) +
                     ",\"entryPoint\":" + JsonString(line.call.substr(0, end)) +
                     ",\"arguments\":" + JsonString(arguments) +
                     ",\"status\":" + std::to_string(line.status);
  if (!line.fault.empty()) json += ",\"fault\":" + JsonString(line.fault);
  return json + '}';
}

}  // namespace

std::optional<JournalForm> JournalFormOf(std::string_view name) {
  if (name == "plain") return JournalForm::kPlain;
  if (name == "text") return JournalForm::kTimed;
  if (name == "json") return JournalForm::kJson;
  return std::nullopt;
}

std::string JournalFile::Open(const std::string& path, JournalForm newForm) {
  form = newForm;
  std::error_code failure;
  keptPath = std::filesystem::absolute(path, failure).string();
  file.open(path, std::ios::binary | std::ios::app);
  return file.is_open() ? "" : "cannot open the file";
}

void JournalFile::Add(const JournalLine& line) {
  if (!file) return;
  const FileLock lock(keptPath);  // as in RunReport
  switch (form) {
    case JournalForm::kPlain:
      file << Escaped(line.call) << " = " << line.status;
      break;
    case JournalForm::kTimed:
      file << line.time << ' ' << TextLine(line);
      break;
    case JournalForm::kJson:
      file << JsonLine(line);
      break;
  }
  file << std::endl;
  if (!file) Warn(kJournalVariable, "cannot write the file; the journal ends here");
}

}  // namespace quillbox
