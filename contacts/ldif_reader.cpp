#include "contacts/ldif_reader.h"

#include <algorithm>

#include "contacts/ascii.h"
#include "contacts/transfer_encoding.h"

namespace contacts {
namespace {

// Object classes of groups, in lower case.
constexpr std::string_view kGroupClasses[] = {
    "groupofnames", "groupofuniquenames", "groupofurls",     "group",
    "mailgroup",    "posixgroup",         "rfc822mailgroup", "nismailalias"};

}  // namespace

bool LdifReader::BeginsEntry() const {
  return BeginsInAnyCase(logical.text, "dn:");
}

bool LdifReader::IsBlank() const {
  return logical.fault == nullptr && contacts::IsBlank(logical.text);
}

// Passes over comments.
bool LdifReader::ReadLogicalLine() {
  do {
    if (!hasPhysical && !lines.Next()) return false;
    hasPhysical = false;
    logical.Begin(lines);
    const bool isBlank = lines.IsBlank();
    while ((hasPhysical = lines.Next()) && !isBlank && lines.Text().starts_with(' ')) {
      if (logical.fault == nullptr) logical.fault = lines.Fault();
      if (logical.text.size() > kMaxRecord) logical.fault = &kRecordTooLong;
      if (logical.fault == nullptr) logical.text += lines.Text().substr(1);
      logical.end = lines.End();
    }
  } while (logical.text.starts_with('#'));
  return true;
}

bool LdifReader::Next(Record& record) {
  while (hasLogical || ReadLogicalLine()) {
    hasLogical = false;
    if (IsBlank() || BeginsInAnyCase(logical.text, "version:")) continue;
    record.Begin(logical.number, logical.begin);
    record.isFragment = !BeginsEntry();
    do {
      AddAttribute(record);
      record.end = logical.end;
      if (record.end - record.begin > kMaxRecord) record.SetFault(kRecordTooLong);
      hasLogical = ReadLogicalLine();
    } while (hasLogical && !BeginsEntry() && !IsBlank());
    // With the blank line, so that records can be put one after another.
    if (hasLogical && IsBlank()) record.end = logical.end;
    return true;
  }
  return false;
}

void LdifReader::AddAttribute(Record& record) const {
  if (logical.fault != nullptr) record.SetFault(*logical.fault);
  if (record.fault.problem != nullptr) return;
  const std::string_view line = logical.text;
  const std::size_t colon = line.find(':');
  const std::string_view description = line.substr(0, colon);
  if (colon == line.npos || description.empty() || description.starts_with(' ') ||
      description.starts_with('\t')) {
    record.SetFault(kBadLine);
    return;
  }
  const std::size_t options = description.find(';');
  Value& value = record.Add(description.substr(0, options));
  for (char& c : value.name) c = LowerCase(c);
  if (options == description.npos) value.preference = 1;
  SetText(value, line.substr(colon + 1));
  if (value.name == "changetype" || value.name == "control") record.SetFault(kChangeRecord);
  if (value.name == "objectclass" &&
      std::ranges::find(kGroupClasses, LowerCase(value.text)) != std::end(kGroupClasses)) {
    record.isGroup = true;
  }
}

void LdifReader::SetText(Value& value, std::string_view text) const {
  if (text.starts_with('<')) {
    value.fault = &kUrlReference;
  } else if (text.starts_with(':')) {
    // The format prescribes UTF-8 for the bytes.
    std::string bytes;
    const bool isDecoded = DecodeBase64(bytes, text.substr(1));
    const bool isUtf8 = IsUtf8(bytes) || IsUtf16(encoding);
    if (!isDecoded) {
      value.fault = &kBadBase64;
    } else if (!AppendUtf8(value.text, bytes, isUtf8 ? Encoding::kUtf8 : encoding)) {
      value.fault = &kNotDecodable;
    } else if (bytes.find('\0') != bytes.npos) {
      value.fault = &kNul;
    }
  } else {
    value.text = Trimmed(text);
  }
}

}  // namespace contacts
