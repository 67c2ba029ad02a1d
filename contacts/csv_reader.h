// Reads delimited text (RFC 4180), with the liberties that spreadsheets take: any delimiter, any
// line end, white space around values, a line "sep=;" before the first row.

#ifndef CONTACTS_CSV_READER_H_
#define CONTACTS_CSV_READER_H_

#include <istream>
#include <string>
#include <string_view>

#include "contacts/lines.h"
#include "contacts/record.h"

namespace contacts {

// The delimiters that are recognised, and that can be chosen.
inline constexpr std::string_view kDelimiters = ",;\t|";

// Returns the delimiter of a line "sep=;", or 0 if the line has another form.
char SeparatorLine(std::string_view line);

class CsvReader : public Reader {
 public:
  CsvReader(std::istream& source, Encoding encoding, char newDelimiter)
      : lines(source, encoding), delimiter(newDelimiter) {}

  // A record is a row. Blank lines and a separator line are no rows.
  bool Next(Record& record) override;

 private:
  void ReadRow(Record& record);
  bool ReadQuoted(Record& record, Value& value);
  bool NextLineOfRow(Record& record);
  void SkipRow(bool isOpen);
  void SkipSpaces();

  Lines lines;
  const char delimiter;
  std::string_view rest;  // the part of the line that is not read yet
};

}  // namespace contacts

#endif  // CONTACTS_CSV_READER_H_
