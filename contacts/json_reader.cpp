// The list is divided into its entries here, so that one broken entry does not end the import, and
// memory use does not depend on the size of the file. A library reads each entry.

#include "contacts/json_reader.h"

#include <nlohmann/json.hpp>

#include "contacts/encoding.h"
#include "contacts/lines.h"
#include "contacts/transfer_encoding.h"

namespace contacts {
namespace {

constexpr int kEnd = std::char_traits<char>::eof();
constexpr std::string_view kBytesSuffix = "-bytes";

bool AppendBytes(std::string& bytes, std::string_view digits) {
  for (std::size_t i = 0; i < digits.size(); i += 2) {
    if (!AppendHexadecimal(bytes, digits.substr(i, 2))) return false;
  }
  return true;
}

}  // namespace

JsonReader::JsonReader(std::istream& newSource) : source(newSource) {
  for (const char c : kUtf8Mark) {
    if (source.peek() == static_cast<unsigned char>(c)) Get();
  }
}

int JsonReader::Get() {
  const int c = source.get();
  if (c == '\n') ++line;
  if (c != kEnd) ++position;
  return c;
}

// Reads up to one of the characters outside texts, beginning with `c`, and returns it.
int JsonReader::SkipTo(std::string_view ends, int c) {
  bool isText = false;
  for (; c != kEnd; c = Get()) {
    if (!isText && ends.find(static_cast<char>(c)) != ends.npos) break;
    if (c == '"') isText = !isText;
    if (c == '\\' && isText) Get();
  }
  return c;
}

bool JsonReader::Next(Record& record) {
  if (isAtEnd) return false;
  if (!isInList) SkipTo("[", Get());
  isInList = true;
  int c = Get();
  while (c == ',' || c == ' ' || c == '\t' || c == '\r' || c == '\n') c = Get();
  if (c == ']') {
    isAtEnd = true;
    return false;
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
    isAtEnd = SkipTo(",]", c) != ',';
  }
  record.end = position;
  return true;
}

// Stores the text from a brace to the matching one. Stores no more than kMaxRecord bytes. Returns
// false if the source ends before.
bool JsonReader::ReadObject() {
  object = "{";
  bool isText = false;
  for (int depth = 1; depth > 0;) {
    int c = Get();
    if (c == kEnd) return false;
    if (object.size() <= kMaxRecord) object += static_cast<char>(c);
    if (isText && c == '\\') {
      c = Get();
      if (c != kEnd) object += static_cast<char>(c);
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
  const auto entry = nlohmann::ordered_json::parse(object, nullptr, false);
  if (entry.is_discarded()) return record.SetFault(kBadLine);
  if (entry.size() > Record::kMaxValues) return record.SetFault(kTooManyValues);
  for (const auto& [name, text] : entry.items()) {
    if (name.ends_with(kBytesSuffix)) continue;
    const auto bytes = entry.find(name + std::string(kBytesSuffix));
    Value& value = record.Add(name);
    value.isBytes = bytes != entry.end();
    const auto& given = value.isBytes ? *bytes : text;
    if (!given.is_string()) {
      value.fault = &kBadLine;
    } else if (!value.isBytes) {
      value.text = given.template get_ref<const std::string&>();
    } else if (!AppendBytes(value.text, given.template get_ref<const std::string&>())) {
      value.fault = &kBadLine;
    }
    if (value.text.find('\0') != value.text.npos) value.fault = &kNul;
  }
}

}  // namespace contacts
