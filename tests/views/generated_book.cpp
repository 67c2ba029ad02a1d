#include "tests/views/generated_book.h"

#include <algorithm>
#include <string>

#include "bridge/imsp_api.h"
#include "simulator/simulator.h"
#include "tests/support/email_entry.h"

namespace quillkit {
namespace {

// The name at a place in the order in which a style makes its names.
std::string NameAt(BookStyle style, std::size_t i) {
  constexpr std::string_view kEightBitFirsts = "Az\x80\xC4\xE4\xFF";
  switch (style) {
    case BookStyle::kOneLetter:
      return "n" + std::to_string(1000 + i);
    case BookStyle::kManyLetters:
      return std::string(1, static_cast<char>('a' + i * 7 % 26)) + std::string(i % 5, 'n') +
             (i < 26 ? "" : std::to_string(i / 26));
    case BookStyle::kEightBit:
      return std::string(1, kEightBitFirsts[i % kEightBitFirsts.size()]) + "\xFC" +
             std::to_string(100 + i);
    case BookStyle::kManyFirstBytes:
      return std::string(1, static_cast<char>(1 + i * 2 % 255)) + std::to_string(i);
  }
  return {};
}

}  // namespace

const char* StyleName(BookStyle style) {
  constexpr const char* kNames[] = {"OneLetter", "ManyLetters", "EightBit", "ManyFirstBytes"};
  return kNames[static_cast<std::size_t>(style)];
}

Entries GeneratedBook(BookStyle style, std::size_t size) {
  Entries entries;
  for (std::size_t i = 0; i < size; ++i) {
    entries.push_back(MakeEntry(NameAt(style, i), std::to_string(i) + "@a"));
    entries.back().flags = i % 3 == 0 ? 1 : 0;
  }
  std::sort(entries.begin(), entries.end(), [](const CEmailEntry& a, const CEmailEntry& b) {
    return a.name.View() < b.name.View();
  });
  return entries;
}

void PutBook(const Entries& entries) {
  SimulatorClearFaults();
  ABIdent book(BookKind::kEmail, kEmailBook);
  IMSPClearAB(&book, nullptr);
  for (const CEmailEntry& each : entries) {
    SimulatorPutEntry(BookKind::kEmail, nullptr, nullptr, &each);
  }
  SimulatorClearJournal();
}

}  // namespace quillkit
