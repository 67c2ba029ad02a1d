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

// Returns the next character that is no white space, without taking it.
int JsonReader::Peek() {
  while (IsSpace(source.peek())) Get();
  return source.peek();
}

// Stores the text of the next value, no more than kMaxRecord bytes and one. An entry ends with its
// brace, whatever it holds. Returns false if the source ends before.
bool JsonReader::ReadValue() {
  const int open = Peek();
  const int close = open == '{' ? '}' : open == '[' ? ']' : kEnd;
  const auto isAfterWord = [&] {
    const int c = source.peek();
    return c == kEnd || c == ',' || c == ']' || c == '}' || IsSpace(c);
  };
  text.clear();
  bool isText = false;
  bool isEscaped = false;
  int depth = 0;
  do {
    const int c = Get();
    if (c == kEnd) return false;
    if (text.size() <= kMaxRecord) text += static_cast<char>(c);
    const bool isQuote = c == '"' && !isEscaped;
    isEscaped = isText && c == '\\' && !isEscaped;
    if (isQuote) isText = !isText;
    if (!isText && close != kEnd) depth += c == open ? 1 : c == close ? -1 : 0;
  } while (isText || depth > 0 || (close == kEnd && open != '"' && !isAfterWord()));
  return true;
}

// Moves after the bracket that opens the list, from a brace or comma before a member. Returns false
// if no further member is a list of entries.
bool JsonReader::MoveToList() {
  do {
    Get();
    if (Peek() != '"' || !ReadValue() || Peek() != ':') return false;
    const bool isEntries = text == "\"entries\"";
    Get();
    isInList = isEntries && Peek() == '[';
    if (isInList) Get();
    if (isInList || !ReadValue()) return isInList;
  } while (Peek() == ',');
  return false;
}

bool JsonReader::Next(Record& record) {
  if (isAtEnd) return false;
  if (!isInList) {
    isInList = isBare = Peek() == '[';
    if (isBare) Get();
    if (!isBare && (Peek() != '{' || !MoveToList())) return PassOverRest(record, 1, 0);
  }
  while (Peek() == ',') Get();
  while (Peek() == ']') {
    Get();
    if (!isBare && Peek() == ',' && MoveToList()) continue;
    if (!isBare && Peek() == '}') Get();
    isAtEnd = true;
    return Peek() != kEnd && PassOverRest(record, line, position);
  }
  record.Begin(line, position);
  record.hasFieldNames = true;
  isAtEnd = !ReadValue();
  if (isAtEnd) {
    record.SetFault(kTruncated);
  } else {
    AddValues(record);
  }
  record.end = position;
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

void JsonReader::AddValues(Record& record) const {
  if (!text.starts_with('{')) return record.SetFault(kBadLine);
  if (text.size() > kMaxRecord) return record.SetFault(kRecordTooLong);
  if (!IsUtf8(text)) return record.SetFault(kNotDecodable);
  Members members(record);
  if (!Json::sax_parse(text, &members)) record.SetFault(kBadLine);
  for (Value& each : record.Values()) {
    if (each.name.ends_with(kBytesSuffix)) StoreBytes(record, each);
  }
}

}  // namespace contacts
