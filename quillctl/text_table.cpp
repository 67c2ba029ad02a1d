#include "quillctl/text_table.h"

#include <algorithm>
#include <ostream>

#include "quillctl/displayed_text.h"

namespace quillctl {
namespace {

constexpr std::size_t kGap = 2;

using Widths = std::vector<std::size_t>;

void Widen(Widths& widths, const Row& row) {
  widths.resize(std::max(widths.size(), row.size()));
  for (std::size_t i = 0; i < row.size(); ++i) {
    widths[i] = std::max(widths[i], DisplayedWidth(row[i]));
  }
}

void PrintRow(std::ostream& out, const Widths& widths, const Row& row) {
  std::string line;
  for (std::size_t i = 0; i < row.size(); ++i) {
    line += row[i];
    line.append(widths[i] - DisplayedWidth(row[i]) + kGap, ' ');
  }
  out << line.substr(0, line.find_last_not_of(' ') + 1) << '\n';
}

}  // namespace

std::string LowerCase(std::string text) {
  for (char& c : text) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return text;
}

void TextTable::AddRow(Row cells) {
  for (std::string& cell : cells) cell = DisplayedText(cell);
  rows.push_back(std::move(cells));
}

void TextTable::Print(std::ostream& out) const {
  Widths widths;
  Widen(widths, headings);
  for (const Row& row : rows) Widen(widths, row);
  if (!headings.empty()) PrintRow(out, widths, headings);
  for (const Row& row : rows) PrintRow(out, widths, row);
}

}  // namespace quillctl
