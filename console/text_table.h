// Tables for the screen. Columns are as wide as their widest cell and separated by two spaces. On a
// terminal, long cells below headings are cut, and end in "…", so that each row fits on a line.

#ifndef CONSOLE_TEXT_TABLE_H_
#define CONSOLE_TEXT_TABLE_H_

#include <string>
#include <utility>
#include <vector>

namespace console {

// One cell for each column.
using Row = std::vector<std::string>;

// Returns the text with A to Z in lower case. Converts a heading to the word that the command line
// and JSON use.
std::string LowerCase(std::string text);

class TextTable {
 public:
  // Creates a table without headings.
  TextTable() = default;
  explicit TextTable(Row newHeadings) : headings(std::move(newHeadings)) {}

  // Adds a row. Converts the cells with DisplayedText.
  void AddRow(Row cells);

  // Returns whether there is no row below the headings.
  bool IsEmpty() const { return rows.empty(); }

  // Prints the table to standard output, without spaces at the ends of lines.
  void Print() const;

 private:
  Row headings;
  std::vector<Row> rows;
};

}  // namespace console

#endif  // CONSOLE_TEXT_TABLE_H_
