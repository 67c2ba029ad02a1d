#include "tests/import/conversion_model.h"

#include <cstddef>
#include <cstring>
#include <string_view>
#include <utility>

namespace quillkit::model {
namespace {

std::string Cut(const std::string& text, std::size_t most) {
  return text.size() > most ? text.substr(0, most) : text;
}

std::string Quoted(const std::string& text, std::size_t most) {
  return " \"" + Cut(text, most) + "\"";
}

std::string EmailEntry(const std::string& name, const std::string& address, bool isAdmin) {
  if (!isAdmin) return Cut(name, 31) + "\n" + Cut(address, 255) + "\n";
  return "SE emailab" + Quoted(name, 31) + Quoted(address, 255) + "\n";
}

std::string WordlessClearLine(const Request& request) {
  return request.isAdmin && request.clearFirst ? "CA %s\n" : "";
}

bool BeginsWith(const std::string& text, const std::string& front) {
  return text.compare(0, front.size(), front) == 0;
}

// --- Delimited text ---

struct Book {
  std::string word;
  std::vector<std::size_t> widths;
  std::string tail;
};

const Book kBooks[] = {{"emailab", {31, 255}, "\n"},
                       {"faxab", {31, 79, 10}, "\n"},
                       {"printersab", {31, 255, 31}, "\n"},
                       {"usersab", {31, 15, 255, 255}, " 1 0 0 1\n"}};

const Book* FindBook(std::int32_t targetBook) {
  return targetBook >= 1 && targetBook <= 4 ? &kBooks[targetBook - 1] : nullptr;
}

std::string WithoutEnd(std::string line) {
  while (!line.empty() && (line.back() == ' ' || line.back() == '\n')) line.pop_back();
  return line;
}

// The values of a row's columns, as many as come before a quote that is not closed.
std::vector<std::string> Columns(const std::string& row) {
  std::vector<std::string> fields(1);
  bool isInside = false;
  for (const char c : row) {
    if (c == '"') isInside = !isInside;
    if (c == ',' && !isInside) {
      fields.emplace_back();
    } else if (c != '"') {
      fields.back() += c;
    }
  }
  if (isInside) fields.pop_back();
  const std::string white = " \t\n\v\f\r";
  for (std::string& field : fields) {
    while (!field.empty() && white.find(field.back()) != white.npos) field.pop_back();
    while (!field.empty() && white.find(field.front()) != white.npos) field.erase(0, 1);
  }
  return fields;
}

std::vector<std::string> MappedColumns(const std::string& row,
                                       const std::vector<std::int32_t>& columnMap) {
  const std::vector<std::string> columns = Columns(row);
  std::vector<std::string> out;
  for (const std::int32_t column : columnMap) {
    const bool isThere = column >= 0 && static_cast<std::size_t>(column) < columns.size();
    out.push_back(isThere ? columns[static_cast<std::size_t>(column)] : "");
  }
  out.resize(out.size() + 4);  // a map that is too short gives empty values
  return out;
}

std::string DelimitedEntry(const std::string& row, const Request& request) {
  const Book* const book = FindBook(request.targetBook);
  if (book == nullptr || (!request.isAdmin && request.targetBook > 2)) return row;
  const std::vector<std::string> out = MappedColumns(row, request.columnMap);
  if (!request.isAdmin) {
    return Cut(out[0], book->widths[0]) + "\n" + Cut(out[1], book->widths[1]) + "\n";
  }
  std::string entry = "SE " + book->word;
  for (std::size_t i = 0; i < book->widths.size(); ++i) entry += Quoted(out[i], book->widths[i]);
  return entry + book->tail;
}

// --- Mail-server export ---

constexpr std::size_t kNone = std::string::npos;

// A row in memory as the splitting changes it: separators become NULs.
struct Row {
  std::string bytes;     // with a NUL at its end
  std::size_t next = 0;  // where the splitting goes on

  std::string TextAt(std::size_t place) const { return bytes.c_str() + place; }
  bool IsLineEnd(std::size_t place) const { return place + 1 == bytes.size(); }

  // Where the next field stands.
  std::size_t Next(char separator) {
    const std::size_t field = std::exchange(next, kNone);
    if (field == kNone) return kNone;
    std::size_t i = field;
    for (; bytes[i] != '\0' && bytes[i] != separator; ++i) {
      if (bytes[i] != '"') continue;
      i = bytes.find('"', i + 1);
      if (i == kNone) return kNone;
    }
    if (bytes[i] != '\0') {
      bytes[i] = '\0';
      next = i + 1;
    }
    return field;
  }
};

// Where the row's name stands.
std::size_t FindName(Row& row) {
  constexpr std::string_view kWord = "Mailbox";
  if (row.Next(',') == kNone || row.TextAt(0) != kWord || row.IsLineEnd(kWord.size())) return kNone;
  std::size_t cursor = kWord.size() + 1;
  for (int pass = 1; pass <= 3; ++pass) {
    if (row.bytes[cursor] == ',') {
      ++cursor;
      continue;
    }
    cursor = row.Next(',');
    if (cursor == kNone) return kNone;
    if (row.bytes[cursor] != '"') continue;
    const std::size_t end = cursor + row.TextAt(cursor).size();
    if (!row.IsLineEnd(end)) row.bytes[end] = ',';
    row.next = cursor + 1;
    cursor = row.Next('"');
    if (cursor == kNone) return kNone;
  }
  return cursor;
}

std::string MailServerEntry(const std::string& line, bool isAdmin) {
  Row row{line + '\0'};
  const std::size_t name = FindName(row);
  if (name == kNone) return "";
  const std::size_t behind = name + row.TextAt(name).size() + 1;
  const std::string rest = behind < row.bytes.size() ? row.TextAt(behind) : "";
  const std::size_t mark = rest.find("SMTP:");
  if (mark == rest.npos) return "";
  const std::string address = rest.substr(mark + 5);
  return EmailEntry(row.TextAt(name), address.substr(0, address.find_first_of("%,\"")), isAdmin);
}

}  // namespace

std::vector<std::string> Lines(const std::string& file) {
  std::string folded;
  for (std::size_t i = 0; i < file.size(); ++i) {
    if (file[i] == '\r' && i + 1 < file.size() && file[i + 1] == '\n') continue;
    folded += file[i];
  }
  std::vector<std::string> lines;
  std::string line;
  for (const char c : folded) {
    line += c;
    if (c == '\n' || line.size() == 4094) {
      lines.push_back(line);
      line.clear();
    }
  }
  if (!line.empty()) lines.push_back(line);
  for (std::string& each : lines) each.resize(std::strlen(each.c_str()));
  return lines;
}

std::string DelimitedText(const std::string& file, const Request& request) {
  std::string script;
  const Book* const book = FindBook(request.targetBook);
  if (request.isAdmin && request.clearFirst && book != nullptr) script = "CA " + book->word + "\n";
  bool isHeaderNext = request.skipHeader;
  for (const std::string& line : Lines(file)) {
    const std::string row = WithoutEnd(line);
    if (row.empty()) continue;
    if (!isHeaderNext) script += DelimitedEntry(row, request);
    isHeaderNext = false;
  }
  return script;
}

std::string DirectoryExport(const std::string& file, const Request& request) {
  std::string script = WordlessClearLine(request);
  bool isInside = false;
  bool hasName = false;
  bool hasAddress = false;
  std::string name;
  std::string address;
  for (std::string line : Lines(file)) {
    if (!line.empty()) line.pop_back();
    if (line.empty()) continue;
    if (!isInside) {
      isInside = BeginsWith(line, "dn:");
      continue;
    }
    if (line.find("dn:") != line.npos) {
      hasName = hasAddress = false;
      continue;
    }
    if (!hasName && BeginsWith(line, "cn:")) {
      hasName = true;
      name = Cut(line.substr(3), 31);
    } else if (!hasAddress && BeginsWith(line, "mail:")) {
      hasAddress = true;
      address = Cut(line.substr(5), 255);
    }
    if (!hasName || !hasAddress) continue;
    while (BeginsWith(name, " ")) name.erase(0, 1);
    while (BeginsWith(address, " ")) address.erase(0, 1);
    script += EmailEntry(name, address, request.isAdmin);
    isInside = hasName = hasAddress = false;
  }
  return script;
}

std::string MailServerExport(const std::string& file, const Request& request) {
  std::string script = WordlessClearLine(request);
  for (const std::string& line : Lines(file)) script += MailServerEntry(line, request.isAdmin);
  return script;
}

}  // namespace quillkit::model
