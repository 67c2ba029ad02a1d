// Reads vCards of the versions 2.1, 3.0 (RFC 2426) and 4.0 (RFC 6350): folded lines, groups of
// properties, quoted-printable, base64, character sets.

#ifndef CONTACTS_VCARD_READER_H_
#define CONTACTS_VCARD_READER_H_

#include <istream>
#include <string_view>

#include "contacts/lines.h"
#include "contacts/record.h"

namespace contacts {

class VcardReader : public Reader {
 public:
  VcardReader(std::istream& source, Encoding newEncoding);

  // A record is a card. The names of its values are in lower case, without groups. The value "n" is
  // the given and the family name.
  bool Next(Record& record) override;

 private:
  struct Property;

  bool ReadLogicalLine();
  std::string_view RawText() const { return isUtf16 ? lines.Text() : lines.Bytes(); }
  bool Is(std::string_view property) const;
  void ReadCard(Record& record);
  void PassOver(Record& record);
  void AddProperty(Record& record);
  void SetText(Value& value, const Property& property);

  Lines lines;
  const bool isUtf16;
  const Encoding encoding;   // of the logical line
  bool hasPhysical = false;  // whether the line of `lines` is not used yet
  bool hasLogical = false;   // whether the logical line is not used yet
  bool isOld = false;        // whether the card has version 2.1
  bool hadEscape = false;    // whether a value of the card had an escape of the other versions
  LogicalLine logical;       // bytes, without the folds
};

}  // namespace contacts

#endif  // CONTACTS_VCARD_READER_H_
