#include "contacts/writers.h"

#include <algorithm>
#include <cstddef>

#include "contacts/transfer_encoding.h"

namespace contacts {
namespace {

// Appends a line, folded so that no part has more than `width` bytes: each further part begins with
// a space. A character of UTF-8 is not divided.
void AppendFolded(std::string& file, std::string_view line, std::size_t width,
                  std::string_view lineEnd) {
  const auto isContinuation = [](char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; };
  std::size_t room = width;
  while (line.size() > room) {
    std::size_t length = room;
    while (length > 1 && isContinuation(line[length])) --length;
    file.append(line.substr(0, length)).append(lineEnd).append(" ");
    line.remove_prefix(length);
    room = width - 1;
  }
  file.append(line).append(lineEnd);
}

// Returns whether LDIF can hold the value without encoding.
bool IsSafeInLdif(std::string_view value) {
  const auto isSafe = [](unsigned char c) { return c >= 0x20 && c < 0x7F; };
  return std::ranges::all_of(value, isSafe) && !value.starts_with(' ') && !value.starts_with(':') &&
         !value.starts_with('<') && !value.ends_with(' ');
}

void AppendAttribute(std::string& file, std::string_view name, std::string_view value) {
  if (value.empty()) return;
  std::string line(name);
  line += IsSafeInLdif(value) ? ": " + std::string(value) : ":: " + EncodeBase64(value);
  AppendFolded(file, line, 76, "\n");
}

// Returns the value with the escapes of RFC 4514, as a part of a distinguished name.
std::string NamePart(std::string_view value) {
  std::string escaped;
  for (std::size_t i = 0; i < value.size(); ++i) {
    const bool isEdge = value[i] == ' ' && (i == 0 || i + 1 == value.size());
    if (isEdge || std::string_view(",+\"\\<>;=#").find(value[i]) != std::string_view::npos) {
      escaped += '\\';
    }
    escaped += value[i];
  }
  return escaped;
}

void AppendProperty(std::string& file, std::string_view name, std::string_view value) {
  if (value.empty()) return;
  std::string line(name);
  for (const char c : value) {
    const bool isControl = static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
    if (isControl && c != '\n' && c != '\t') continue;  // vCard has no form for it
    if (c == '\\' || c == ',' || c == ';' || c == '\n') line += '\\';
    line += c == '\n' ? 'n' : c;
  }
  AppendFolded(file, line, 75, "\r\n");
}

}  // namespace

void AppendCsv(std::string& file, std::span<const std::string> values) {
  for (const std::string& value : values) {
    if (&value != values.data()) file += ',';
    const bool isPlain = value.find_first_of(",;\t|\"\r\n") == value.npos &&
                         !value.starts_with(' ') && !value.ends_with(' ');
    if (isPlain) {
      file += value;
      continue;
    }
    file += '"';
    for (const char c : value) file.append(c == '"' ? 2 : 1, c);
    file += '"';
  }
  file += "\r\n";
}

std::string WithoutFormula(std::string value) {
  if (value.find_first_of("=+-@\t\r'") == 0) value.insert(0, 1, '\'');
  return value;
}

void AppendLdif(std::string& file, const Contact& contact) {
  file += '\n';
  AppendAttribute(file, "dn", "cn=" + NamePart(contact.name));
  file += "objectClass: inetOrgPerson\n";
  AppendAttribute(file, "cn", contact.name);
  AppendAttribute(file, "sn", contact.name);
  AppendAttribute(file, "mail", contact.email);
  AppendAttribute(file, "facsimileTelephoneNumber", contact.fax);
  AppendAttribute(file, "description", contact.note);
}

void AppendVcard(std::string& file, const Contact& contact) {
  file += "BEGIN:VCARD\r\nVERSION:4.0\r\n";
  AppendProperty(file, "FN:", contact.name);
  AppendProperty(file, "EMAIL:", contact.email);
  AppendProperty(file, "TEL;TYPE=fax:", contact.fax);
  AppendProperty(file, "NOTE:", contact.note);
  file += "END:VCARD\r\n";
}

}  // namespace contacts
