// The column map of an import: which column of the file supplies each field of the book. It has two
// forms:
//
//   2,10                             a column number for each field, counted from 0; -1 for none
//   name=Full Name,address=10        FIELD=COLUMN in any order. A column is a number or a heading
//                                    of the file. Fields that are left out have no column.
//
// A column that looks like a number is a number. A heading with a comma needs double quotes around
// "FIELD=HEADING".

#ifndef QUILLCTL_COLUMN_MAP_H_
#define QUILLCTL_COLUMN_MAP_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "quillctl/address_books.h"

namespace quillctl {

class ColumnMap {
 public:
  // Throws a UsageError if the text is not a valid map for this book.
  ColumnMap(std::string_view text, const AddressBook& filledBook);

  // Returns whether the map refers to headings of the file.
  bool HasHeadings() const;

  // Returns the column of each field, in the book's order. Throws a UsageError, which lists the
  // file's headings, if a heading of the map is missing in the file or occurs twice.
  std::vector<std::int32_t> Columns(const std::vector<std::string>& headings) const;

 private:
  struct Source {
    std::int32_t column = -1;
    std::string heading = {};  // if not empty, replaces the column number
  };

  void ParseNumbers(std::string_view text);
  void ParseFields(std::string_view text);
  Source& SourceOf(const std::string& word);

  const AddressBook& book;
  std::vector<Source> sources;  // one for each field of the book
};

}  // namespace quillctl

#endif  // QUILLCTL_COLUMN_MAP_H_
