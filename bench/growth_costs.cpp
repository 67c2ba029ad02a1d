// The growth of the cost of each operation with the number of entries, members or accounts, which
// is after the slash: its time, and its server calls ("calls").

#include <benchmark/benchmark.h>

#include <array>
#include <cstdint>
#include <random>
#include <string>

#include "appliance/scanner.h"
#include "bench/ready_server.h"
#include "bench/session.h"
#include "books/email_ab.h"
#include "books/user_ab.h"
#include "books/user_record.h"
#include "lists/pub_email_dl.h"
#include "views/letter_entry_view.h"

namespace quillkit {
namespace {

constexpr std::int32_t kSpan = 48;  // of the view of a book

// Returns the e-mail book with `size` entries, opened with a sliding view of its own.
CEmailAB* Book(std::int32_t size) {
  static CEmailAB book;
  static std::int32_t current = 0;
  if (current != size) {
    ReadyServerSetEntries(static_cast<std::uint32_t>(size));
    Require(book.Attach(Session(), 0) == 1, "Attach");  // drops the old census
  }
  current = size;
  return &book;
}

// --- The e-mail book ---

CEmailAB* BookOf(const benchmark::State& state) {
  return Book(static_cast<std::int32_t>(state.range(0)));
}

// Measures `operation`, which receives an index between 0 and the size.
template <class Operation>
void Measure(benchmark::State& state, Operation operation) {
  const auto size = static_cast<std::int32_t>(state.range(0));
  std::minstd_rand random(1);
  std::uint64_t operations = 0;
  const std::uint64_t calls = ReadyServerCalls();
  while (state.KeepRunning()) {
    operation(static_cast<std::int32_t>(random() % static_cast<std::uint32_t>(size)));
    ++operations;
  }
  const std::uint64_t each = (ReadyServerCalls() - calls) / operations;
  state.counters["calls"] = static_cast<double>(each);
}

void OpenBook(benchmark::State& state) {
  BookOf(state);
  Measure(state, [](std::int32_t) {
    CEmailAB opened;
    Require(opened.Attach(Session(), 0) == 1, "Attach");
  });
}

void FirstEntry(benchmark::State& state) {
  CEmailAB* book = BookOf(state);
  Measure(state, [&](std::int32_t) { Require(book->First() != nullptr, "First"); });
}

void LastEntry(benchmark::State& state) {
  CEmailAB* book = BookOf(state);
  Measure(state, [&](std::int32_t) { Require(book->Last() != nullptr, "Last"); });
}

void NextSpan(benchmark::State& state) {
  CEmailAB* book = BookOf(state);
  Measure(state, [&](std::int32_t) {
    for (std::int32_t i = 0; i < kSpan; ++i) {
      if (book->Next() == nullptr) Require(book->First() != nullptr, "First");
    }
  });
}

void EntryAtIndex(benchmark::State& state) {
  CEmailAB* book = BookOf(state);
  Measure(state, [&](std::int32_t index) { Require(book->GetAt(index) != nullptr, "GetAt"); });
}

// Measures a search for the first `length` characters of 64 names of the book.
template <class Search>
void MeasureSearch(benchmark::State& state, std::size_t length, Search search) {
  CEmailAB* book = BookOf(state);
  std::array<std::string, 64> names;
  std::minstd_rand random(2);
  for (std::string& each : names) {
    const auto index =
        static_cast<std::int32_t>(random() % static_cast<std::uint32_t>(state.range(0)));
    const CEmailEntry* entry = book->GetAt(index);
    Require(entry != nullptr, "GetAt");
    each = entry->name.View().substr(0, length);
  }
  Measure(state, [&](std::int32_t index) {
    const std::string& name = names[static_cast<std::size_t>(index) % names.size()];
    Require(search(*book, name) != nullptr, "the search");
  });
}

void FindName(benchmark::State& state) {
  MeasureSearch(state, std::string::npos,
                [](CEmailAB& book, const std::string& name) { return book.Find(name, 1); });
}

// Ten names begin with the prefix. The span is emptied before each search.
void FindPrefix(benchmark::State& state) {
  MeasureSearch(state, 6, [](CEmailAB& book, const std::string& prefix) {
    book.View()->Reset();
    return book.FindPrefix(prefix);
  });
}

void FindLetter(benchmark::State& state) {
  CEmailAB* book = BookOf(state);
  Measure(state, [&](std::int32_t index) {
    Require(book->FindLetter(static_cast<char>('a' + index % 26)) != nullptr, "FindLetter");
  });
}

void ReadCensus(benchmark::State& state) {
  CEmailAB* book = BookOf(state);
  Measure(state,
          [&](std::int32_t) { Require(book->View()->LoadBoundaries(1) == 0, "LoadBoundaries"); });
}

void ReadLetter(benchmark::State& state) {
  CEmailAB* book = BookOf(state);
  CLetterEntryView view;
  view.AttachBook(book);
  Measure(state, [&](std::int32_t index) {
    Require(view.FindLetter(static_cast<char>('a' + index % 26)) != nullptr, "FindLetter");
  });
}

// --- A distribution list ---

// Returns a list of as many members, all in memory.
CPubEmailDL& ListOf(const benchmark::State& state) {
  static CPubEmailDL list;
  ReadyServerSetMembers(static_cast<std::uint32_t>(state.range(0)));
  list.Open(Book(static_cast<std::int32_t>(kReadyEntries)), "List000000");
  Require(list.Reload() == kNoError && list.Count() == state.range(0), "Reload");
  return list;
}

void ReloadList(benchmark::State& state) {
  CPubEmailDL& list = ListOf(state);
  Measure(state, [&](std::int32_t) { Require(list.Reload() == kNoError, "Reload"); });
}

void ReadMember(benchmark::State& state) {
  CPubEmailDL& list = ListOf(state);
  Measure(state, [&](std::int32_t index) {
    CEmailEntry entry = *list.GetAt(index);
    Require(list.ReadMember(&entry) == kNoError, "ReadMember");
  });
}

void FindMember(benchmark::State& state) {
  CPubEmailDL& list = ListOf(state);
  Measure(state, [&](std::int32_t index) {
    Require(list.FindMember(*list.GetAt(index)) == index, "FindMember");
  });
}

// --- The accounts ---

CUserAB& UsersOf(const benchmark::State& state) {
  static CUserAB users;
  ReadyServerSetUsers(static_cast<std::uint32_t>(state.range(0)));
  users.Attach(Session(), 0, 1);
  Require(users.Count() == state.range(0), "Load");
  return users;
}

void LoadUsers(benchmark::State& state) {
  CUserAB& users = UsersOf(state);
  Measure(state, [&](std::int32_t) { Require(users.Load() == 1, "Load"); });
}

void ReadUser(benchmark::State& state) {
  CUserAB& users = UsersOf(state);
  CUserRecord user;
  Measure(state, [&](std::int32_t index) {
    Require(users.GetAt(index, &user) != nullptr && users.ReadUser(&user, 0), "ReadUser");
  });
}

void FindUser(benchmark::State& state) {
  CUserAB& users = UsersOf(state);
  CUserRecord user;
  Measure(state, [&](std::int32_t index) {
    Require(users.GetAt(index, &user) != nullptr && users.Find(user) == index, "Find");
  });
}

void Sizes(benchmark::internal::Benchmark* row) {
  row->Arg(1'000)->Arg(20'000)->Arg(kReadyEntries);
}
BENCHMARK(OpenBook)->Apply(Sizes);
BENCHMARK(FirstEntry)->Apply(Sizes);
BENCHMARK(LastEntry)->Apply(Sizes);
BENCHMARK(NextSpan)->Apply(Sizes);
BENCHMARK(EntryAtIndex)->Apply(Sizes);
BENCHMARK(FindName)->Apply(Sizes);
BENCHMARK(FindPrefix)->Apply(Sizes);
BENCHMARK(FindLetter)->Apply(Sizes);
BENCHMARK(ReadCensus)->Apply(Sizes);
BENCHMARK(ReadLetter)->Apply(Sizes);
BENCHMARK(ReloadList)->Apply(Sizes);
BENCHMARK(ReadMember)->Apply(Sizes);
BENCHMARK(FindMember)->Apply(Sizes);

void AccountSizes(benchmark::internal::Benchmark* row) {
  row->Arg(20)->Arg(400)->Arg(4'000);
}
BENCHMARK(LoadUsers)->Apply(AccountSizes);
BENCHMARK(ReadUser)->Apply(AccountSizes);
BENCHMARK(FindUser)->Apply(AccountSizes);

}  // namespace
}  // namespace quillkit

BENCHMARK_MAIN();
