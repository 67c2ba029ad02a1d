// The column map of an import as the command line takes it: which column of the file supplies each
// field of the book. There are two ways to write one:
//
//   2,10                             a column's number, from 0, for each field; -1 for none
//   name=Full Name,address=10        by fields' words in any order, none for those left out; a
//                                    column by its number or by its heading in the file
//
// What looks like a number is one. Double quotes around "field=heading" keep a comma in it.

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
  // Throws a UsageError for a text that is no map for this book.
  ColumnMap(std::string_view text, const AddressBook& filledBook);

  // Whether it needs the file's headings.
  bool HasHeadings() const;

  // The columns for the fields, in their order. Throws a UsageError, which lists the headings there
  // are, when the file's are without one that the map has, or have it twice.
  std::vector<std::int32_t> Columns(const std::vector<std::string>& headings) const;

 private:
  struct Source {
    std::int32_t column = -1;
    std::string heading = {};  // in place of the column, where it is not empty
  };

  void TakeNumbers(std::string_view text);
  void TakeFields(std::string_view text);
  Source& OfField(const std::string& word);

  const AddressBook& book;
  std::vector<Source> sources;  // for each field of the book
};

}  // namespace quillctl

#endif  // QUILLCTL_COLUMN_MAP_H_
