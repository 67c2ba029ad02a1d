// Debian has no vCard library for both systems.

#include "contacts/vcard_reader.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "contacts/ascii.h"
#include "contacts/transfer_encoding.h"

namespace contacts {
namespace {

// Properties that hold large binary values, which no address book takes.
constexpr std::string_view kIgnored[] = {"photo", "logo", "sound", "key"};

std::optional<Encoding> EncodingOfCharset(std::string_view charset) {
  if (charset == "iso-8859-1" || charset == "iso8859-1" || charset == "latin1") {
    return Encoding::kLatin1;
  }
  if (charset == "cp1252") return Encoding::kWindows1252;
  if (charset == "us-ascii" || charset == "utf8") return Encoding::kUtf8;
  return EncodingOf(charset);
}

// Removes the beginning of the text up to a separator outside double quotes, and returns it.
std::string_view Take(std::string_view& text, std::string_view separators) {
  bool isQuoted = false;
  std::size_t at = 0;
  while (at < text.size() && (isQuoted || separators.find(text[at]) == separators.npos)) {
    if (text[at] == '"') isQuoted = !isQuoted;
    ++at;
  }
  const std::string_view taken = text.substr(0, at);
  text.remove_prefix(at);
  return taken;
}

// Appends the text without the escapes of its version, up to a separator that is not escaped, and
// removes it from `text`. Returns whether there was an escape that version 2.1 does not have.
bool AppendUnescaped(std::string& into, std::string_view& text, char separator, bool isOld) {
  bool hadEscape = false;
  while (!text.empty() && text.front() != separator) {
    const bool isEscape = text.front() == '\\' && text.size() > 1 && (!isOld || text[1] == ';');
    if (isEscape) text.remove_prefix(1);
    hadEscape = hadEscape || (isEscape && text.front() != ';');
    const bool isNewline = isEscape && LowerCase(text.front()) == 'n';
    into += isNewline ? '\n' : text.front();
    text.remove_prefix(1);
  }
  return hadEscape;
}

// Returns the name of a property in lower case, without its group.
std::string NameOf(std::string_view line) {
  const std::string_view full = Take(line, ";:");
  return LowerCase(full.substr(full.rfind('.') + 1));
}

void AppendWord(std::string& text, std::string_view word) {
  if (!text.empty() && !word.empty()) text += ' ';
  text += word;
}

// Appends the given and the family name of the structured value "family;given;...". Returns what
// AppendUnescaped does.
bool AppendName(std::string& into, std::string_view text, bool isOld) {
  std::string family;
  bool hadEscape = AppendUnescaped(family, text, ';', isOld);
  if (!text.empty()) text.remove_prefix(1);
  hadEscape = AppendUnescaped(into, text, ';', isOld) || hadEscape;
  AppendWord(into, family);
  return hadEscape;
}

}  // namespace

// The parts of a logical line.
struct VcardReader::Property {
  explicit Property(std::string_view line);

  void AddParameter(std::string_view parameter, std::string_view text);

  std::string name;  // in lower case, without the group
  std::string charset;
  bool isQuotedPrintable = false;
  bool isBase64 = false;
  bool isFax = false;
  bool isForeign = false;  // an address of another kind of mail
  Place place = Place::kNone;
  unsigned preference = kNoPreference;
  bool hasColon = false;
  std::string_view value;
};

VcardReader::Property::Property(std::string_view line) : name(NameOf(line)) {
  Take(line, ";:");
  while (line.starts_with(';')) {
    line.remove_prefix(1);
    std::string_view parameter = Take(line, ";:");
    const std::size_t equals = parameter.find('=');
    // In version 2.1, the values of TYPE and ENCODING can stand alone.
    std::string_view values = equals == parameter.npos ? parameter : parameter.substr(equals + 1);
    const std::string parameterName =
        equals == parameter.npos ? "" : LowerCase(parameter.substr(0, equals));
    std::string unquoted(values);
    std::erase(unquoted, '"');
    values = unquoted;
    while (!values.empty()) {
      const std::string each = LowerCase(Take(values, ","));
      AddParameter(parameterName, each);
      if (!values.empty()) values.remove_prefix(1);
    }
  }
  hasColon = line.starts_with(':');
  if (hasColon) value = line.substr(1);
}

void VcardReader::Property::AddParameter(std::string_view parameter, std::string_view text) {
  if (parameter == "charset") charset = text;
  if (parameter == "pref") {
    std::from_chars(text.data(), text.data() + text.size(), preference);
  }
  if (!parameter.empty() && parameter != "type" && parameter != "encoding") return;
  isQuotedPrintable = isQuotedPrintable || text == "quoted-printable";
  isBase64 = isBase64 || text == "b" || text == "base64";
  isFax = isFax || text == "fax";
  isForeign = isForeign || text == "x400";
  if (text == "pref") preference = 1;
  if (text == "work") place = Place::kWork;
  if (text == "home") place = Place::kHome;
}

VcardReader::VcardReader(std::istream& source, Encoding newEncoding)
    : lines(source, newEncoding),
      isUtf16(IsUtf16(newEncoding)),
      encoding(isUtf16 ? Encoding::kUtf8 : newEncoding) {}

// Leaves out the further lines of ignored properties.
bool VcardReader::ReadLogicalLine() {
  if (!hasPhysical && !lines.Next()) return false;
  const auto usedFault = [&] {
    // The character set of a property decides about its bytes.
    return lines.Fault() == &kNotDecodable && !isUtf16 ? nullptr : lines.Fault();
  };
  logical.Begin(lines);
  logical.text = RawText();
  logical.fault = usedFault();
  const std::string name = NameOf(logical.text);
  const bool isIgnored = std::ranges::find(kIgnored, name) != std::end(kIgnored);
  const auto hasSoftBreak = [&] {
    return RawText().ends_with('=') && Property(logical.text).isQuotedPrintable;
  };
  bool isSoft = hasSoftBreak();
  while ((hasPhysical = lines.Next())) {
    std::string_view text = RawText();
    if (!isSoft && !text.starts_with(' ') && !text.starts_with('\t')) break;
    logical.end = lines.End();
    if (logical.fault == nullptr) logical.fault = usedFault();
    if (isIgnored || logical.text.size() > kMaxRecord) text = {};
    if (!isIgnored && logical.text.size() > kMaxRecord) logical.fault = &kRecordTooLong;
    if (isSoft && logical.text.ends_with('=')) logical.text.pop_back();
    if (!isSoft && !isOld && !text.empty()) text.remove_prefix(1);
    logical.text += text;
    isSoft = hasSoftBreak();
  }
  if (isIgnored) logical.text.clear();
  return true;
}

bool VcardReader::Is(std::string_view property) const {
  return BeginsInAnyCase(logical.text, property) &&
         IsBlank(std::string_view(logical.text).substr(property.size()));
}

bool VcardReader::Next(Record& record) {
  while (hasLogical || ReadLogicalLine()) {
    hasLogical = false;
    if (IsBlank(logical.text) && logical.fault == nullptr) continue;
    record.Begin(logical.number, logical.begin);
    record.end = logical.end;
    if (Is("begin:vcard")) {
      ReadCard(record);
    } else {
      PassOver(record);
    }
    return true;
  }
  return false;
}

// Makes one record of everything up to the next card.
void VcardReader::PassOver(Record& record) {
  record.SetFault(logical.fault != nullptr ? *logical.fault : kBadLine);
  while ((hasLogical = ReadLogicalLine()) && !Is("begin:vcard")) record.end = logical.end;
}

void VcardReader::ReadCard(Record& record) {
  isOld = hadEscape = false;
  std::size_t size = 0;  // without ignored properties
  while (ReadLogicalLine()) {
    if (Is("begin:vcard")) {
      hasLogical = true;
      break;
    }
    record.end = logical.end;
    if (Is("end:vcard")) return;
    size += logical.text.size();
    if (size > kMaxRecord) record.SetFault(kRecordTooLong);
    if (logical.fault != nullptr) record.SetFault(*logical.fault);
    if (record.fault.problem == nullptr && !logical.text.empty()) AddProperty(record);
  }
  record.SetFault(kTruncated);
}

void VcardReader::AddProperty(Record& record) {
  const Property property(logical.text);
  if (!property.hasColon || property.name.empty()) {
    record.SetFault(kBadLine);
    return;
  }
  Value& value = record.Add(property.name);
  value.place = property.place;
  value.preference = property.preference;
  value.isFax = property.isFax;
  SetText(value, property);
  if (property.isForeign) {
    value.preference = kNoPreference + 1;
    value.fault = &kBadAddress;
  }
  if (property.name == "version") isOld = value.text == "2.1";
  if (isOld && hadEscape) record.SetFault(kBadLine);  // read before the version was known
  if (property.name.ends_with("kind") && LowerCase(value.text).find("group") != std::string::npos)
    record.isGroup = true;
}

void VcardReader::SetText(Value& value, const Property& property) {
  std::string bytes;
  if (property.isQuotedPrintable) {
    if (!DecodeQuotedPrintable(bytes, property.value)) value.fault = &kBadQuotedPrintable;
  } else if (property.isBase64) {
    if (!DecodeBase64(bytes, property.value)) value.fault = &kBadBase64;
  } else {
    bytes = property.value;
  }
  const std::optional<Encoding> charset =
      property.charset.empty() || isUtf16 ? encoding : EncodingOfCharset(property.charset);
  std::string text;
  if (value.fault != nullptr) return;
  if (!charset) {
    value.fault = &kUnknownCharset;
  } else if (!AppendUtf8(text, bytes, *charset)) {
    value.fault = &kNotDecodable;
  } else if (text.find('\0') != text.npos) {
    value.fault = &kNul;
  } else if (property.name == "n") {
    hadEscape = AppendName(value.text, text, isOld) || hadEscape;
  } else {
    std::string_view rest = text;
    hadEscape = AppendUnescaped(value.text, rest, '\0', isOld) || hadEscape;
  }
}

}  // namespace contacts
