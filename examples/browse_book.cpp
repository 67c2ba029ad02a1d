// Browses an e-mail book of 200,000 entries, with few of them in memory: letter by letter and page
// by page. Counts the server calls of each step.

#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>

#include "appliance/scanner.h"
#include "books/email_ab.h"
#include "simulator/simulator.h"
#include "toolkit/quillkit.h"
#include "toolkit/toolkit_app.h"

namespace {

using namespace quillkit;

// 200,000 entries, A000000 to Z199999.
void FillBook() {
  SimulatorReset();
  for (int i = 0; i < MaxEmailEntries; ++i) {
    CEmailEntry entry;
    const std::string digits = std::to_string(1'000'000 + i).substr(1);
    entry.SetName(static_cast<char>('A' + i % 26) + digits);
    entry.SetAddress(digits + "@office.example");
    SimulatorPutEntry(BookKind::kEmail, nullptr, nullptr, &entry);
  }
}

// Prints the entry that a step found, and the number of calls since the previous step.
void Show(const char* step, const CEmailEntry* entry) {
  std::cout << "  " << step << ": " << (entry != nullptr ? entry->Name() : "nothing") << ", calls "
            << SimulatorCallCount() << '\n';
  SimulatorClearJournal();
}

// A register of letters. The view holds the entries of one letter.
void ByLetter(CScanner* box) {
  CEmailAB book;
  book.Attach(box, 1);
  std::cout << "letter by letter\n";
  Show("the first letter", book.First());
  Show("the entry after it", book.Next());
  const CEmailEntry* entry = book.FindLetter('M');
  Show("the letter M", entry);
  int count = 0;
  for (; entry != nullptr && entry->Name()[0] == 'M'; entry = book.Next()) ++count;
  std::cout << "  M has " << count << " entries\n";
  Show("after the last of them", entry);
}

// A list that scrolls. The view holds three pages of 16 entries around the position.
void ByPage(CScanner* box) {
  CEmailAB book;
  book.Attach(box, 0);
  std::cout << "page by page\n";
  const CEmailEntry* entry = book.First();
  Show("page 1", entry);
  for (const char* page : {"page 2", "page 3", "page 4", "page 5"}) {
    for (int i = 0; i < 16 && entry != nullptr; ++i) entry = book.Next();
    Show(page, entry);
  }
  Show("the entry at 100000", book.GetAt(100'000));
  Show("the entry before it", book.Prev());
  Show("the last", book.Last());

  int count = 0;
  for (entry = book.First(); entry != nullptr; entry = book.Next()) ++count;
  std::cout << "  all " << count << " entries: calls " << SimulatorCallCount() << '\n';
  SimulatorClearJournal();
}

}  // namespace

int main() {
  FillBook();
  CScanner* box =
      CToolkitApp::Start() ? LogToQuillbox("127.0.0.1", "ADMINISTRATOR", "quill", "", 0) : nullptr;
  if (box == nullptr) return EXIT_FAILURE;
  SimulatorRecordCalls(1);
  ByLetter(box);
  ByPage(box);
  Logout();
  CToolkitApp::Stop();
}
