// A table for the screen: columns of text as wide as their widest cell, two blanks apart.

#ifndef QUILLCTL_TEXT_TABLE_H_
#define QUILLCTL_TEXT_TABLE_H_

#include <iosfwd>
#include <string>
#include <utility>
#include <vector>

namespace quillctl {

// One cell a column.
using Row = std::vector<std::string>;

// The text with the letters A to Z made small: a heading as a word of the command line or of JSON.
std::string InSmallLetters(std::string text);

class TextTable {
 public:
  // Without headings the table begins with its first row.
  TextTable() = default;
  explicit TextTable(Row newHeadings) : headings(std::move(newHeadings)) {}

  // Cells are texts of the appliance, made fit for the terminal here.
  void AddRow(Row cells);

  // Whether it has no row but its headings.
  bool IsEmpty() const { return rows.empty(); }

  // Lines end at their last character that is no blank.
  void Print(std::ostream& out) const;

 private:
  Row headings;
  std::vector<Row> rows;
};

}  // namespace quillctl

#endif  // QUILLCTL_TEXT_TABLE_H_
