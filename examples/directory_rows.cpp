#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "examples/import_file.h"
#include "examples/import_rows.h"
#include "import/convert_directory_export.h"
#include "import/line_reader.h"
#include "import/script.h"

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
  explicit DirectoryRow(const FileLines& first) : row_{first.Number(), first.Bytes()} {
    Take(first);
  }

  void Take(const FileLines& line) {
    const std::string_view text = line.Text();
    row_.bytes = {row_.bytes.data(), text.data() + line.Bytes().size()};
    const std::string hidden = HiddenFault(text);
    if (!hidden.empty()) row_.fault = hidden;
    if (HasValue(text)) LookAtPlace(text);
    wasBlank_ = wasBlank_ || line.IsBlank();
    if (!valueBefore_.empty() && text.starts_with(' ')) {
      row_.fault = valueBefore_ + " goes on in the next line";
    }
    valueBefore_.clear();

    const bool wasOpen = !IsComplete();
    const bool hadName = entry_.HasName();
    const bool hadAddress = entry_.HasAddress();
    TakeIntoEntry(text);
    if (wasOpen && !hadName && (IsComplete() || entry_.HasName())) {
      LookAtValue(0, entry_.Name(), text);
    }
    if (wasOpen && !hadAddress && (IsComplete() || entry_.HasAddress())) {
      LookAtValue(1, entry_.Address(), text);
    }
  }

  void Finish(ImportRows& into) {
    if (!hadValue_ && row_.fault.empty()) {
      ++into.passedOver;
      return;
    }
    if (!IsComplete() && row_.fault.empty()) {
      row_.fault = entry_.HasName()
                       ? "it has no address: no \"mail:\" line"
                       : "it has no name: no \"cn:\" line, or \"dn:\" stands behind it";
    }
    into.rows.push_back(std::move(row_));
  }

 private:
  bool IsComplete() const { return !row_.values.empty(); }

  // Gives the line in the pieces that LineReader makes of it, less the character that each loses.
  void TakeIntoEntry(std::string_view text) {
    for (; text.size() >= LineReader::kMaxLine; text.remove_prefix(LineReader::kMaxLine)) {
      TakePiece(text.substr(0, LineReader::kMaxLine - 1));
    }
    TakePiece(text);
  }

  void TakePiece(std::string_view piece) {
    if (!entry_.Take(piece)) return;
    if (IsComplete()) row_.fault = "a line is so long that its end opens another entry";
    row_.values = {std::string(entry_.Name()), std::string(entry_.Address())};
  }

  // A blank line ends an entry, elsewhere.
  void LookAtPlace(std::string_view text) {
    if (wasBlank_) row_.fault = "a name or an address behind a blank line has no \"dn:\"";
    const bool isRead = text.starts_with("cn:") || text.starts_with("mail:");
    if (!isRead && !IsComplete())
      row_.fault = "\"cn:\" and \"mail:\" are read in small letters alone";
  }

  // `text` is the line that gave the value of the name, 0, or of the address, 1.
  void LookAtValue(std::size_t field, std::string_view value, std::string_view text) {
    constexpr const char* kFields[] = {"the name", "the address"};
    hadValue_ = true;
    valueBefore_ = kFields[field];
    if (value.starts_with(':')) row_.fault = valueBefore_ + " is encoded, with a double colon";
    text.remove_prefix(std::min(text.find(':') + 1, text.size()));
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    if (text == value) return;
    row_.fault = valueBefore_ + " with the blanks before it is longer than " +
                 std::to_string(quillkit::EmailScriptBook().widths[field]) + " characters";
  }

  ImportRow row_;
  quillkit::DirectoryEntry entry_;
  bool wasBlank_ = false;    // whether a line was
  bool hadValue_ = false;    // whether a name or an address came, complete or not
  std::string valueBefore_;  // what the line before gave; empty for nothing
};

// A line in front of the first entry is none, unless it seems to be of one.
void AddStray(const FileLines& line, ImportRows& into) {
  std::string fault = HiddenFault(line.Text());
  if (fault.empty() && HasValue(line.Text())) fault = "there is no \"dn:\" in front of it";
  if (!fault.empty()) into.rows.push_back({line.Number(), line.Bytes(), {}, std::move(fault)});
}

}  // namespace

ImportRows DirectoryRows(std::string_view text) {
  ImportRows found;
  std::optional<DirectoryRow> row;
  for (FileLines lines(text); lines.Next();) {
    if (lines.Text().starts_with("dn:")) {
      if (row) row->Finish(found);
      row.emplace(lines);
    } else if (row) {
      row->Take(lines);
    } else {
      AddStray(lines, found);
    }
  }
  if (row) row->Finish(found);
  return found;
}

}  // namespace quillctl
