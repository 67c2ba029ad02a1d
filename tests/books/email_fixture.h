// An appliance with a few e-mail entries and two public lists, and a book that stands on it with
// its sliding view and no lists loaded.

#ifndef QUILLKIT_TESTS_BOOKS_EMAIL_FIXTURE_H_
#define QUILLKIT_TESTS_BOOKS_EMAIL_FIXTURE_H_

#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "appliance/scanner.h"
#include "books/email_ab.h"
#include "bridge/the_agent.h"
#include "simulator/simulator.h"
#include "tests/support/appliance_fixture.h"
#include "tests/support/email_entry.h"

namespace quillkit {

inline constexpr Status kServerFault = 6;
inline constexpr Status kEarlierError = 99;

using Calls = std::vector<std::string>;

class EmailBookTest : public ApplianceTest {
 protected:
  EmailBookTest() : box(LogIn()) {
    for (const char* name : {"Ann", "Bob", "Bo"}) Put(BookKind::kEmail, "", name);
    PutList("Board", {"Ann", "Zoe"});
    PutList("Choir", {"Bob"});
    book.Attach(box, 0);
    Start();
  }

  static void Put(BookKind kind, const char* list, std::string_view name) {
    const CEmailEntry entry = MakeEntry(name);
    SimulatorPutEntry(kind, list, nullptr, &entry);
  }

  static void PutList(const char* list, std::initializer_list<std::string_view> members) {
    for (const std::string_view each : members) Put(BookKind::kPublicList, list, each);
  }

  static std::int32_t ServerSize(const char* list) {
    return SimulatorBookSize(BookKind::kPublicList, list, nullptr);
  }

  // Forgets calls, faults and the last error.
  static void Start() {
    SimulatorClearFaults();
    SimulatorClearJournal();
    TheAgent.SetError(kEarlierError);
  }

  CScanner* box;
  CEmailAB book;
};

// The names of what a book or a list holds.
template <class Held>
std::string Names(std::int32_t count, Held at) {
  std::string names;
  for (std::int32_t i = 0; i < count; ++i) names += std::string(at(i)->Name()) + " ";
  return names;
}

// The names that a walk of every operation that gives an entry comes by; "-" where it gives none.
template <class Book>
Calls Tour(Book& book) {
  Calls names;
  for (const auto& step : std::initializer_list<std::function<CEmailEntry*()>>{
           [&] { return book.First(); }, [&] { return book.Next(); }, [&] { return book.Prev(); },
           [&] { return book.Last(); }, [&] { return book.GetAt(1); },
           [&] { return book.FindPrefix("Bo"); }, [&] { return book.FindNextPrefix(); },
           [&] { return book.Find("Bo", 0); }, [&] { return book.FindNext(0); },
           [&] { return book.FindPrev(0); }, [&] { return book.FindLetter('B'); }}) {
    const CEmailEntry* entry = step();
    names.emplace_back(entry != nullptr ? entry->Name() : "-");
  }
  return names;
}

inline std::string ListNames(const CEmailAB& book) {
  return Names(book.ListCount(), [&](std::int32_t i) { return book.ListAt(i); });
}

inline std::string MemberNames(const CEmailDL& list) {
  return Names(list.Count(), [&](std::int32_t i) { return list.GetAt(i); });
}

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_BOOKS_EMAIL_FIXTURE_H_
