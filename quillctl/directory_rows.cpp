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

// Returns whether the line has the attribute, in upper or lower case.
bool HasAttribute(std::string_view text, std::string_view attribute) {
  return LowerCase(std::string(text.substr(0, attribute.size()))) == attribute;
}

bool IsNameOrAddress(std::string_view text) {
  return HasAttribute(text, "cn:") || HasAttribute(text, "mail:");
}

// Returns whether the converter reads the line as a name or an address.
bool IsConverted(std::string_view text) {
  return text.starts_with("cn:") || text.starts_with("mail:");
}

// Returns the line without spaces before its value. The converter counts them in the value's width.
std::string WithoutLeadingSpaces(std::string_view text) {
  const std::size_t value = text.find(':') + 1;
  const std::size_t spaces = std::min(text.find_first_not_of(' ', value), text.size()) - value;
  return std::string(text).erase(value, spaces);
}

// Returns the fault of a line that the converter does not read as intended, or an empty text.
std::string DirectoryLineFault(std::string_view text) {
  if (text.find('\0') != text.npos) return kNul;
  if (text.find('\r') != text.npos) return kBareReturn;
  if (HasAttribute(text, "dn:") && !text.starts_with("dn:")) {
    return "\"dn:\" must be in lower case";
  }
  return {};
}

// An entry of a directory export, read with the converter's own class.
class DirectoryRow {
 public:
  explicit DirectoryRow(const FileLines& first) : row{first.Number(), first.Bytes()} {
    AddLine(first);
  }

  void AddLine(const FileLines& line) {
    const std::string_view text = line.Text();
    row.bytes = {row.bytes.data(), text.data() + line.Bytes().size()};
    SetFault(DirectoryLineFault(text));
    if (IsNameOrAddress(text)) CheckPosition(text);
    if (text.empty()) blankLine = line.Bytes().data();
    if (!valueOnPreviousLine.empty() && text.starts_with(' ')) {
      SetFault(valueOnPreviousLine + " continues on the next line");
    }
    valueOnPreviousLine.clear();

    std::string value;
    std::string_view sent = text;
    if (IsConverted(text)) sent = value = WithoutLeadingSpaces(text);
    const bool wasOpen = !IsComplete();
    const bool hadName = entry.HasName();
    const bool hadAddress = entry.HasAddress();
    PassToConverter(sent);
    if (wasOpen && !hadName && (IsComplete() || entry.HasName())) {
      CheckValue(0, entry.Name(), sent);
    }
    if (wasOpen && !hadAddress && (IsComplete() || entry.HasAddress())) {
      CheckValue(1, entry.Address(), sent);
    }
  }

  // Returns whether this entry is complete and the line belongs to another entry, which the
  // converter does not recognize.
  bool EndsBefore(const FileLines& line) const {
    const std::string_view text = line.Text();
    return IsComplete() &&
           (HasAttribute(text, "dn:") || (blankLine != nullptr && IsNameOrAddress(text)));
  }

  // Returns where that other entry begins: at the blank line before it, if there is one. In a file
  // of rejected rows, the blank line separates it from the row before.
  const char* NextEntry(const FileLines& line) const {
    return blankLine != nullptr ? blankLine : line.Bytes().data();
  }

  // Adds the row, or counts it as passed over.
  void MoveTo(ImportRows& into) {
    if (!hasValue && row.fault.empty()) {
      ++into.passedOver;
      return;
    }
    if (!IsComplete()) {
      SetFault(entry.HasName()
                   ? "no address: the entry has no \"mail:\" line"
                   : "no name: the entry has no \"cn:\" line, or a later line contains \"dn:\"");
    }
    into.rows.push_back(std::move(row));
  }

 private:
  bool IsComplete() const { return !row.values.empty(); }

  // Only the first fault is reported.
  void SetFault(std::string fault) {
    if (row.fault.empty()) row.fault = std::move(fault);
  }

  // Splits the line as LineReader does. Each piece loses its last character, as in the converter.
  void PassToConverter(std::string_view text) {
    for (; text.size() >= LineReader::kMaxLine; text.remove_prefix(LineReader::kMaxLine)) {
      PassPiece(text.substr(0, LineReader::kMaxLine - 1));
    }
    PassPiece(text);
  }

  void PassPiece(std::string_view piece) {
    if (!entry.ProcessLine(piece)) return;
    if (IsComplete()) SetFault("a line is so long that its end would be read as another entry");
    row.values = {std::string(entry.Name()), std::string(entry.Address())};
  }

  // For other programs, a blank line ends an entry.
  void CheckPosition(std::string_view text) {
    if (blankLine != nullptr) SetFault("a name or an address after a blank line has no \"dn:\"");
    if (!IsConverted(text) && !IsComplete())
      SetFault("\"cn:\" and \"mail:\" must be in lower case");
  }

  // Checks the name (field 0) or the address (field 1) that the converter read from the line.
  void CheckValue(std::size_t field, std::string_view value, std::string_view text) {
    constexpr const char* kFields[] = {"the name", "the address"};
    hasValue = true;
    valueOnPreviousLine = kFields[field];
    if (value.starts_with(':')) SetFault(valueOnPreviousLine + " is encoded (double colon)");
    if (text.substr(text.find(':') + 1) == value) return;
    SetFault(valueOnPreviousLine + " is longer than " +
             std::to_string(quillkit::EmailScriptBook().widths[field]) + " bytes");
  }

  ImportRow row;
  quillkit::DirectoryEntry entry;
  const char* blankLine = nullptr;  // the last blank line
  bool hasValue = false;            // whether the entry has a name or an address
  std::string valueOnPreviousLine;  // "the name" or "the address"; empty for none
};

// Adds a line outside an entry as a row, if it seems to be part of an entry. Its bytes begin at
// `from`.
void AddLineOutsideEntry(const FileLines& line, const char* from, ImportRows& into) {
  std::string fault = DirectoryLineFault(line.Text());
  if (fault.empty() && IsNameOrAddress(line.Text())) fault = "there is no \"dn:\" line before it";
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
      from = row->NextEntry(lines);
      row->MoveTo(found);
      row.reset();
    }
    if (opens) {
      row = std::make_unique<DirectoryRow>(lines);
    } else if (row) {
      row->AddLine(lines);
    } else {
      AddLineOutsideEntry(lines, from, found);
    }
  }
  if (row) row->MoveTo(found);
  return found;
}

}  // namespace quillctl
