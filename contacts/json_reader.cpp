// The list is divided into its entries here, so that one broken entry does not end the import, and
// memory use does not depend on the size of the file. A library reads each entry.

#include "contacts/json_reader.h"

#include <nlohmann/json.hpp>

#include <algorithm>

#include "contacts/encoding.h"
#include "contacts/lines.h"
#include "contacts/transfer_encoding.h"

namespace contacts {
namespace {

using Json = nlohmann::json;

constexpr int kEnd = std::char_traits<char>::eof();
constexpr std::string_view kBytesSuffix = "-bytes";

// Adds the members of an object to a record. A member that is no text has a fault.
class Members : public nlohmann::json_sax<Json> {
 public:
  explicit Members(Record& newRecord) : record(newRecord) {}

  bool key(std::string& name) override {
    if (depth != 1) return true;
    for (const Value& each : record.Values()) {
      if (each.name == name) record.SetFault(kBadLine);
    }
    value = &record.Add(name);
    value->fault = &kBadLine;
    return record.fault.problem == nullptr;
  }
  bool string(std::string& text) override {
    if (depth != 1 || value == nullptr) return true;
    value->text = text;
    value->fault = text.find('\0') != text.npos ? &kNul : nullptr;
    return true;
  }
  bool start_object(std::size_t) override { return ++depth < kMostDepth; }
  bool start_array(std::size_t) override { return ++depth < kMostDepth; }
  bool end_object() override { return depth-- > 0; }
  bool end_array() override { return depth-- > 0; }
  bool null() override { return true; }
  bool boolean(bool) override { return true; }
  bool number_integer(number_integer_t) override { return true; }
  bool number_unsigned(number_unsigned_t) override { return true; }
  bool number_float(number_float_t, const string_t&) override { return true; }
  bool binary(binary_t&) override { return true; }
  bool parse_error(std::size_t, const std::string&, const Json::exception&) override {
    return false;
  }

 private:
  static constexpr int kMostDepth = 100;

  Record& record;
  Value* value = nullptr;
  int depth = 0;
};

bool IsSpace(int c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

// Stores the bytes of a member with the suffix in the member without it.
void StoreBytes(Record& record, Value& digits) {
  const std::string name = digits.name.substr(0, digits.name.size() - kBytesSuffix.size());
  const std::span<Value> values = record.Values();
  const auto found = std::ranges::find(values, name, &Value::name);
  Value& value = found != values.end() ? *found : digits;
  const std::string text = digits.text;
  value.name = name;
  value.isBytes = true;
  value.text.clear();
  for (std::size_t i = 0; i < text.size(); i += 2) {
    if (!AppendHexadecimal(value.text, std::string_view(text).substr(i, 2))) {
      value.fault = &kBadLine;
    }
  }
  if (value.text.find('\0') != value.text.npos) value.fault = &kNul;
}

}  // namespace

void SkipMark(std::istream& source) {
  for (const char c : kUtf8Mark) {
    if (source.peek() == static_cast<unsigned char>(c)) source.get();
  }
}

JsonReader::JsonReader(std::istream& newSource) : source(newSource) {
  if (source.peek() == static_cast<unsigned char>(kUtf8Mark.front())) position = kUtf8Mark.size();
  SkipMark(source);
}

int JsonReader::Get() {
  const int c = source.get();
  if (c == '\n') ++line;
  if (c != kEnd) ++position;
  return c;
}

// Returns the next character that is no white space.
int JsonReader::GetNext() {
  int c = Get();
  while (IsSpace(c)) c = Get();
  return c;
}

// Skips a value that begins with `c`. Returns the character after it, a comma or a closing bracket;
// kEnd at the end of the source.
int JsonReader::SkipValue(int c) {
  int depth = 0;
  bool isText = false;
  for (; c != kEnd; c = Get()) {
    if (isText && c == '\\') {
      Get();
    } else if (c == '"') {
      isText = !isText;
    } else if (!isText && (c == '[' || c == '{')) {
      ++depth;
    } else if (!isText && (c == ']' || c == '}')) {
      if (depth-- == 0) return c;
    } else if (!isText && c == ',' && depth == 0) {
      return c;
    }
  }
  return c;
}

// Moves after the bracket that opens the list.
bool JsonReader::FindList() {
  int c = GetNext();
  isBare = c == '[';
  if (isBare || c != '{') return isBare;
  for (c = GetNext(); c == '"'; c = GetNext()) {
    std::string name;
    for (c = Get(); c != '"' && c != kEnd; c = Get()) {
      if (name.size() < kMaxRecord) name += static_cast<char>(c);
    }
    if (GetNext() != ':') return false;
    c = GetNext();
    if (name == "entries" && c == '[') return true;
    if (SkipValue(c) != ',') return false;
  }
  return false;
}

// Skips what belongs to the document after its list. Returns the first character after it.
int JsonReader::SkipRest() {
  isAtEnd = true;
  int c = ',';
  while (!isBare && c == ',') c = SkipValue(Get());
  return GetNext();
}

bool JsonReader::Next(Record& record) {
  if (isAtEnd) return false;
  if (!isInList && !FindList()) return PassOverRest(record, 1, 0);
  isInList = true;
  int c = GetNext();
  while (c == ',') c = GetNext();
  if (c == ']') {
    c = SkipRest();
    return c != kEnd && PassOverRest(record, line, position - 1);
  }
  record.Begin(line, position - (c == kEnd ? 0 : 1));
  record.hasFieldNames = true;
  if (c == kEnd || (c == '{' && !ReadObject())) {
    record.SetFault(kTruncated);
    isAtEnd = true;
  } else if (c == '{') {
    AddValues(record);
  } else {
    record.SetFault(kBadLine);
    isAtEnd = SkipValue(c) != ',';
  }
  // The comma after a value that is no entry is not part of the record.
  const bool hasComma = c != '{' && !isAtEnd;
  record.end = position - (hasComma ? 1 : 0);
  return true;
}

// Makes one record of the rest of the file, which is no entry. Returns true.
bool JsonReader::PassOverRest(Record& record, std::uint64_t firstLine, std::uint64_t begin) {
  record.Begin(firstLine, begin);
  record.SetFault(kBadLine);
  while (Get() != kEnd) {
  }
  record.end = position;
  isAtEnd = true;
  return true;
}

// Stores the text from a brace to the matching one, no more than kMaxRecord bytes and one. Returns
// false if the source ends before.
bool JsonReader::ReadObject() {
  object = "{";
  bool isText = false;
  bool isEscaped = false;
  for (int depth = 1; depth > 0;) {
    const int c = Get();
    if (c == kEnd) return false;
    if (object.size() <= kMaxRecord) object += static_cast<char>(c);
    if (isEscaped) {
      isEscaped = false;
    } else if (isText && c == '\\') {
      isEscaped = true;
    } else if (c == '"') {
      isText = !isText;
    } else if (!isText) {
      depth += c == '{' ? 1 : c == '}' ? -1 : 0;
    }
  }
  return true;
}

void JsonReader::AddValues(Record& record) const {
  if (object.size() > kMaxRecord) return record.SetFault(kRecordTooLong);
  if (!IsUtf8(object)) return record.SetFault(kNotDecodable);
  Members members(record);
  if (!Json::sax_parse(object, &members)) record.SetFault(kBadLine);
  for (Value& each : record.Values()) {
    if (each.name.ends_with(kBytesSuffix)) StoreBytes(record, each);
  }
}

}  // namespace contacts
