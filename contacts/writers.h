// Writers of contact files. Each function appends to a text; the caller writes the file.
//
// Values are bytes. CSV and LDIF keep them without conversion. The values of a vCard must be UTF-8.

#ifndef CONTACTS_WRITERS_H_
#define CONTACTS_WRITERS_H_

#include <span>
#include <string>
#include <string_view>

namespace contacts {

// What LDIF and vCard hold of a contact. Empty values are left out; the name must not be empty.
struct Contact {
  std::string_view name;
  std::string_view email;
  std::string_view fax;
  std::string_view note;
};

// Appends one record of RFC 4180, with CRLF at its end.
void AppendCsv(std::string& file, std::span<const std::string> values);

// Returns the value so that a spreadsheet shows it as text and does not evaluate it as a formula:
// with an apostrophe before a leading "=", "+", "-", "@", tab, carriage return or apostrophe.
std::string WithoutFormula(std::string value);

// The first line of an LDIF file.
inline constexpr std::string_view kLdifHeading = "version: 1\n";

// Appends an entry of RFC 2849 with the object class inetOrgPerson, after an empty line. A value
// that is not plain ASCII text is encoded in base64.
void AppendLdif(std::string& file, const Contact& contact);

// Appends a vCard 4.0 (RFC 6350). Control characters other than line feeds and tabs are left out.
void AppendVcard(std::string& file, const Contact& contact);

}  // namespace contacts

#endif  // CONTACTS_WRITERS_H_
