// Reads LDIF (RFC 2849): folded lines, base64, comments, attribute options. References to other
// places and change records are rejected.

#ifndef CONTACTS_LDIF_READER_H_
#define CONTACTS_LDIF_READER_H_

#include <istream>
#include <string_view>

#include "contacts/lines.h"
#include "contacts/record.h"

namespace contacts {

class LdifReader : public Reader {
 public:
  LdifReader(std::istream& source, Encoding newEncoding)
      : lines(source, newEncoding), encoding(newEncoding) {}

  // A record is an entry. The names of its values are in lower case, without options. A value
  // without options is preferred.
  bool Next(Record& record) override;

 private:
  bool ReadLogicalLine();
  bool BeginsEntry() const;
  bool IsBlank() const;
  void AddAttribute(Record& record) const;
  void SetText(Value& value, std::string_view text) const;

  Lines lines;
  const Encoding encoding;
  bool hasPhysical = false;  // whether the line of `lines` is not used yet
  bool hasLogical = false;   // whether the logical line is not used yet
  LogicalLine logical;       // without the folds
};

}  // namespace contacts

#endif  // CONTACTS_LDIF_READER_H_
