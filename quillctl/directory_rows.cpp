#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "import/convert_directory_export.h"
#include "import/line_reader.h"
#include "import/script.h"
#include "quillctl/import_rows.h"
#include "quillctl/text_file.h"

namespace quillctl {
namespace {

using quillkit::LineReader;

// Whether the line has the attribute, which other programs write in letters of any size.
bool HasAttribute(std::string_view text, std::string_view attribute) {
  return InSmallLetters(std::string(text.substr(0, attribute.size()))) == attribute;
}

bool HasValue(std::string_view text) {
  return HasAttribute(text, "cn:") || HasAttribute(text, "mail:");
}

// Whether the converter may read a value from the line.
bool IsRead(std::string_view text) {
  return text.starts_with("cn:") || text.starts_with("mail:");
}

// A line that is read, as it is sent: the converter counts the blanks in front of a value with it.
std::string WithoutBlanks(std::string_view text) {
  const std::size_t value = text.find(':') + 1;
  const std::size_t blanks = std::min(text.find_first_not_of(' ', value), text.size()) - value;
  return std::string(text).erase(value, blanks);
}

// What keeps the converter from seeing what the line is, or an empty text.
std::string HiddenFault(std::string_view text) {
  if (text.find('\0') != text.npos) return "a line holds a NUL character";
  if (text.find('\r') != text.npos) return kBareReturn;
  if (HasAttribute(text, "dn:") && !text.starts_with("dn:")) {
    return "an entry begins with \"dn:\" in small letters alone";
  }
  return {};
}

// An entry of a directory export on its way through the converter's own class.
class DirectoryRow {
 public:
  explicit DirectoryRow(const FileLines& first) : row{first.Number(), first.Bytes()} {
    Take(first);
  }

  void Take(const FileLines& line) {
    const std::string_view text = line.Text();
    row.bytes = {row.bytes.data(), text.data() + line.Bytes().size()};
    Fail(HiddenFault(text));
    if (HasValue(text)) LookAtPlace(text);
    if (text.empty()) blankLine = line.Bytes().data();
    if (!valueBefore.empty() && text.starts_with(' ')) {
      Fail(valueBefore + " goes on in the next line");
    }
    valueBefore.clear();

    std::string value;
    std::string_view read = text;
    if (IsRead(text)) read = value = WithoutBlanks(text);
    const bool wasOpen = !IsComplete();
    const bool hadName = entry.HasName();
    const bool hadAddress = entry.HasAddress();
    TakeIntoEntry(read);
    if (wasOpen && !hadName && (IsComplete() || entry.HasName())) {
      LookAtValue(0, entry.Name(), read);
    }
    if (wasOpen && !hadAddress && (IsComplete() || entry.HasAddress())) {
      LookAtValue(1, entry.Address(), read);
    }
  }

  // Whether the line is none of this row, but of an entry behind it that the converter does not
  // see.
  bool EndsBefore(const FileLines& line) const {
    const std::string_view text = line.Text();
    return IsComplete() && (HasAttribute(text, "dn:") || (blankLine != nullptr && HasValue(text)));
  }

  // Where that begins, with the blank line in front of it: without it, another row would take it.
  const char* End(const FileLines& line) const {
    return blankLine != nullptr ? blankLine : line.Bytes().data();
  }

  void Finish(ImportRows& into) {
    if (!hadValue && row.fault.empty()) {
      ++into.passedOver;
      return;
    }
    if (!IsComplete()) {
      Fail(entry.HasName() ? "it has no address: no \"mail:\" line"
                           : "it has no name: no \"cn:\" line, or \"dn:\" stands behind it");
    }
    into.rows.push_back(std::move(row));
  }

 private:
  bool IsComplete() const { return !row.values.empty(); }

  // The first reason is the one that is told.
  void Fail(std::string why) {
    if (row.fault.empty()) row.fault = std::move(why);
  }

  // Gives the line in the pieces that LineReader makes of it, less the character that each loses.
  void TakeIntoEntry(std::string_view text) {
    for (; text.size() >= LineReader::kMaxLine; text.remove_prefix(LineReader::kMaxLine)) {
      TakePiece(text.substr(0, LineReader::kMaxLine - 1));
    }
    TakePiece(text);
  }

  void TakePiece(std::string_view piece) {
    if (!entry.Take(piece)) return;
    if (IsComplete()) Fail("a line is so long that its end opens another entry");
    row.values = {std::string(entry.Name()), std::string(entry.Address())};
  }

  // A blank line ends an entry, elsewhere.
  void LookAtPlace(std::string_view text) {
    if (blankLine != nullptr) Fail("a name or an address behind a blank line has no \"dn:\"");
    if (!IsRead(text) && !IsComplete())
      Fail("\"cn:\" and \"mail:\" are read in small letters alone");
  }

  // `text` is the line that gave the value of the name, 0, or of the address, 1.
  void LookAtValue(std::size_t field, std::string_view value, std::string_view text) {
    constexpr const char* kFields[] = {"the name", "the address"};
    hadValue = true;
    valueBefore = kFields[field];
    if (value.starts_with(':')) Fail(valueBefore + " is encoded, with a double colon");
    if (text.substr(text.find(':') + 1) == value) return;
    Fail(valueBefore + " is longer than " +
         std::to_string(quillkit::EmailScriptBook().widths[field]) + " characters");
  }

  ImportRow row;
  quillkit::DirectoryEntry entry;
  const char* blankLine = nullptr;  // the last blank line
  bool hadValue = false;            // whether a name or an address came, complete or not
  std::string valueBefore;          // what the line before gave; empty for nothing
};

// A line of no entry is none, unless it seems to be of one. Its bytes begin at `from`.
void AddStray(const FileLines& line, const char* from, ImportRows& into) {
  std::string fault = HiddenFault(line.Text());
  if (fault.empty() && HasValue(line.Text())) fault = "there is no \"dn:\" in front of it";
  if (fault.empty()) return;
  const std::string_view bytes(from, line.Bytes().data() + line.Bytes().size());
  into.rows.push_back({line.Number(), bytes, {}, std::move(fault)});
}

}  // namespace

ImportRows DirectoryRows(std::string_view text) {
  ImportRows found;
  std::unique_ptr<DirectoryRow> row;
  for (FileLines lines(text); lines.Next();) {
    const bool opens = lines.Text().starts_with("dn:");
    const char* from = lines.Bytes().data();
    if (row && (opens || row->EndsBefore(lines))) {
      from = row->End(lines);
      row->Finish(found);
      row.reset();
    }
    if (opens) {
      row = std::make_unique<DirectoryRow>(lines);
    } else if (row) {
      row->Take(lines);
    } else {
      AddStray(lines, from, found);
    }
  }
  if (row) row->Finish(found);
  return found;
}

}  // namespace quillctl
