#include "console/text_table.h"

#include <algorithm>
#include <iostream>

#include "console/displayed_text.h"
#include "console/system/terminal.h"

namespace console {
namespace {

constexpr std::size_t kGap = 2;

using Widths = std::vector<std::size_t>;

void Widen(Widths& widths, const Row& row) {
  widths.resize(std::max(widths.size(), row.size()));
  for (std::size_t i = 0; i < row.size(); ++i) {
    widths[i] = std::max(widths[i], DisplayedWidth(row[i]));
  }
}

// Makes the widest columns narrower until all fit into `columns`, 0 for no limit. Leaves each
// column at least kLeast wide.
void Narrow(Widths& widths, std::size_t columns) {
  constexpr std::size_t kLeast = 8;
  if (columns == 0 || widths.empty()) return;
  std::size_t total = kGap * (widths.size() - 1);
  for (const std::size_t each : widths) total += each;
  while (total > columns) {
    const auto widest = std::ranges::max_element(widths);
    if (*widest <= kLeast) return;
    --*widest;
    --total;
  }
}

void PrintRow(const Widths& widths, const Row& row) {
  std::string line;
  for (std::size_t i = 0; i < row.size(); ++i) {
    const std::string cell = CutDisplayed(row[i], widths[i]);
    line += cell;
    line.append(widths[i] - DisplayedWidth(cell) + kGap, ' ');
  }
  std::cout << line.substr(0, line.find_last_not_of(' ') + 1) << '\n';
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

void TextTable::Print() const {
  Widths widths;
  Widen(widths, headings);
  for (const Row& row : rows) Widen(widths, row);
  if (!headings.empty()) Narrow(widths, StdoutColumns());
  if (!headings.empty()) PrintRow(widths, headings);
  for (const Row& row : rows) PrintRow(widths, row);
}

}  // namespace console
