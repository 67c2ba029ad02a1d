#include "tests/import/conversion_model.h"

#include <cstddef>
#include <cstring>

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

// A row in memory as the splitting changes it: separators become NULs.
class Row {
 public:
  explicit Row(const std::string& line) : bytes_(line) { bytes_ += '\0'; }

  // The text at a place, up to its NUL.
  std::string TextAt(std::size_t place) const { return bytes_.c_str() + place; }

  char& operator[](std::size_t place) { return bytes_[place]; }

  // What lies behind the NUL of the text at a place, to the end of the line.
  std::string BehindTextAt(std::size_t place) const {
    const std::size_t behind = place + TextAt(place).size() + 1;
    return behind < bytes_.size() ? std::string(bytes_.c_str() + behind) : std::string();
  }

  // Splits from a place on.
  bool NextFrom(std::size_t place, char separator, std::size_t* field) {
    position_ = place;
    hasPosition_ = true;
    return Next(separator, field);
  }

  bool Next(char separator, std::size_t* field) {
    if (!hasPosition_) return false;
    *field = position_;
    std::size_t i = position_;
    for (; bytes_[i] != '\0' && bytes_[i] != separator; ++i) {
      if (bytes_[i] != '"') continue;
      do {
        ++i;
      } while (bytes_[i] != '\0' && bytes_[i] != '"');
      if (bytes_[i] == '\0') {
        hasPosition_ = false;
        return false;
      }
    }
    hasPosition_ = bytes_[i] != '\0';
    if (hasPosition_) bytes_[i] = '\0';
    position_ = i + 1;
    return true;
  }

  bool IsLineEnd(std::size_t place) const { return place + 1 == bytes_.size(); }

 private:
  std::string bytes_;
  std::size_t position_ = 0;
  bool hasPosition_ = false;
};

// Whether the row has a name, and where.
bool FindName(Row& row, std::size_t* cursor) {
  std::size_t first = 0;
  if (!row.NextFrom(0, ',', &first)) return false;
  if (row[first] == '"') ++first;
  if (row.TextAt(first) != "Mailbox") return false;
  *cursor = first + 7;
  if (row.IsLineEnd(*cursor)) return false;
  ++*cursor;
  for (int pass = 1; pass <= 3; ++pass) {
    if (row[*cursor] == ',') {
      ++*cursor;
      continue;
    }
    if (!row.Next(',', cursor)) return false;
    if (row[*cursor] != '"') continue;
    const std::size_t end = *cursor + row.TextAt(*cursor).size();
    if (!row.IsLineEnd(end)) row[end] = ',';
    if (!row.NextFrom(*cursor + 1, '"', cursor)) return false;
  }
  return true;
}

std::string MailServerEntry(const std::string& line, bool isAdmin) {
  Row row(line);
  std::size_t name = 0;
  if (!FindName(row, &name)) return "";
  const std::string rest = row.BehindTextAt(name);
  const std::size_t mark = rest.find("SMTP:");
  if (mark == rest.npos) return "";
  std::string address;
  for (std::size_t i = mark + 5; i < rest.size(); ++i) {
    if (rest[i] == '%' || rest[i] == ',' || rest[i] == '"') break;
    address += rest[i];
  }
  return EmailEntry(row.TextAt(name), address, isAdmin);
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
