// Shows what a caller sees if another user changes the book between two pages. Pages in memory do
// not change. The pages that are read next show the change. The letters are read once: open the
// book again to update them.

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

CEmailEntry Entry(const std::string& name) {
  CEmailEntry entry;
  entry.SetName(name);
  entry.SetAddress("anyone@office.example");
  return entry;
}

// What the other user does.
void Add(const std::string& name) {
  const CEmailEntry entry = Entry(name);
  SimulatorPutEntry(BookKind::kEmail, nullptr, nullptr, &entry);
}
void Remove(CScanner* box, const std::string& name) {
  box->EmailEntries().Delete(name);
}

// Walks on from the entry to the name, or to where it would be.
void Look(CEmailAB& book, const CEmailEntry* entry, const std::string& name) {
  while (entry != nullptr && entry->Name() < name) entry = book.Next();
  const bool found = entry != nullptr && entry->Name() == name;
  std::cout << "  " << name << (found ? " is shown\n" : " is not shown\n");
}

void Browse(CScanner* box) {
  CEmailAB book;
  book.Attach(box, 0);  // three pages of 16 entries: M100 to M147
  const CEmailEntry* first = book.First();
  std::cout << "opened at " << (first != nullptr ? first->Name() : "nothing") << ", letters "
            << book.FirstLetter() << " to " << book.NextLetter('M') << '\n';

  std::cout << "another user removes M120 and M170, and adds M125a, M175a and Z\n";
  Remove(box, "M120");
  Remove(box, "M170");
  for (const char* name : {"M125a", "M175a", "Z"}) Add(name);

  std::cout << "in the pages in memory\n";
  Look(book, first, "M120");
  Look(book, book.Next(), "M125a");
  std::cout << "in the pages that are read now\n";
  Look(book, book.Next(), "M170");
  Look(book, book.Next(), "M175a");
  std::cout << "the last letter is " << book.NextLetter('M') << '\n';

  book.Attach(box, 0);
  std::cout << "opened again\n";
  Look(book, book.First(), "M120");
  Look(book, book.Next(), "M125a");
  std::cout << "the last letter is " << book.NextLetter('M') << '\n';
}

}  // namespace

int main() {
  SimulatorReset();
  for (int i = 100; i < 200; ++i) Add("M" + std::to_string(i));
  CScanner* box =
      CToolkitApp::Start() ? LogToQuillbox("127.0.0.1", "ADMINISTRATOR", "quill", "", 0) : nullptr;
  if (box == nullptr) return EXIT_FAILURE;
  Browse(box);
  Logout();
  CToolkitApp::Stop();
}
