// Reads entries in JSON: {"quillbox-entries": 1, ..., "entries": [{...}, ...]}, or a list of
// entries alone.

#ifndef CONTACTS_JSON_READER_H_
#define CONTACTS_JSON_READER_H_

#include <cstdint>
#include <istream>
#include <string>

#include "contacts/record.h"

namespace contacts {

// Skips a byte order mark of UTF-8.
void SkipMark(std::istream& source);

class JsonReader : public Reader {
 public:
  // Skips a byte order mark.
  explicit JsonReader(std::istream& newSource);

  // A record is an entry, also one that is not valid JSON: the next entry begins after its brace.
  // The values are the texts of the entry. One with the suffix "-bytes" holds hexadecimal digits
  // and replaces the text without the suffix. What follows the list is a record with a fault.
  bool Next(Record& record) override;

 private:
  int Get();
  int Peek();
  bool ReadValue();
  bool MoveToList();
  bool PassOverRest(Record& record, std::uint64_t firstLine, std::uint64_t begin);
  void AddValues(Record& record) const;

  std::istream& source;
  bool isInList = false;
  bool isBare = false;  // the file is the list
  bool isAtEnd = false;
  std::string text;  // of the last value
  std::uint64_t line = 1;
  std::uint64_t position = 0;
};

}  // namespace contacts

#endif  // CONTACTS_JSON_READER_H_
