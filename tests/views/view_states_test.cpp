// What every operation of a view returns in each state, as tables.
//
// The book has the entries a0 a1 b2 b3 b4 c5 c6 d7 e8 e9; the pages of the sliding view have two
// entries. A cell is the result, and the number of server calls in parentheses. A row of several
// operations has the last result. In the last three states the view is on b4 and the book then
// changes on the server.

#include <string>
#include <string_view>

#include "tests/views/view_walk.h"
#include "views/full_entry_view.h"
#include "views/letter_entry_view.h"
#include "views/sliding_entry_view.h"

namespace quillkit {
namespace {

enum class State {
  kNoBook,
  kOpened,
  kInSpan,
  kBefore,
  kAfter,
  kFailed,
  kDeleted,
  kAdded,
  kEmptied
};

struct Row {
  const char* label;
  std::function<Result(CEntryView&, CEmailEntry& b4, CEmailEntry& x)> run;
};

const Row kRows[] = {
    {"`First`", [](auto& view, auto&, auto&) { return view.First(); }},
    {"`Last`", [](auto& view, auto&, auto&) { return view.Last(); }},
    {"`Next`", [](auto& view, auto&, auto&) { return view.Next(); }},
    {"`Next`, `Next`", [](auto& view, auto&, auto&) { return view.Next(), view.Next(); }},
    {"`Prev`", [](auto& view, auto&, auto&) { return view.Prev(); }},
    {"`Prev`, `Prev`", [](auto& view, auto&, auto&) { return view.Prev(), view.Prev(); }},
    {"`GetAt(7)`", [](auto& view, auto&, auto&) { return view.GetAt(7); }},
    {"`Find(\"b4\", 0)`", [](auto& view, auto&, auto&) { return view.Find("b4", 0); }},
    {"`Find(\"b4\", 1)`", [](auto& view, auto&, auto&) { return view.Find("b4", 1); }},
    {"`Find(\"b\", 1)`", [](auto& view, auto&, auto&) { return view.Find("b", 1); }},
    {"`Find(\"b\", 1)`, `Next`",
     [](auto& view, auto&, auto&) { return view.Find("b", 1), view.Next(); }},
    {"`FindPrefix(\"b\")`", [](auto& view, auto&, auto&) { return view.FindPrefix("b"); }},
    {"`FindPrefix(\"b\")`, `FindNextPrefix`",
     [](auto& view, auto&, auto&) { return view.FindPrefix("b"), view.FindNextPrefix(); }},
    {"`FindPrefix(\"b\")`, `FindNext(1)`",
     [](auto& view, auto&, auto&) { return view.FindPrefix("b"), view.FindNext(1); }},
    {"`FindPrefix(\"c\")`, `FindPrev(0)`",
     [](auto& view, auto&, auto&) { return view.FindPrefix("c"), view.FindPrev(0); }},
    {"`FindLetter('d')`", [](auto& view, auto&, auto&) { return view.FindLetter('d'); }},
    {"`FindLetter('x')`", [](auto& view, auto&, auto&) { return view.FindLetter('x'); }},
    {"`Add(x, 1)`", [](auto& view, auto&, auto& x) { return view.Add(&x, 1); }},
    {"`Remove(b4, 0)`", [](auto& view, auto& b4, auto&) { return view.Remove(&b4, 0); }},
    {"`Remove(b4, 1)`", [](auto& view, auto& b4, auto&) { return view.Remove(&b4, 1); }},
    {"`RemoveAt(4)`", [](auto& view, auto&, auto&) { return view.RemoveAt(4); }},
    {"`Modify(b4, 0)`", [](auto& view, auto& b4, auto&) { return view.Modify(&b4, 0); }},
    {"`Modify(b4, 1)`", [](auto& view, auto& b4, auto&) { return view.Modify(&b4, 1); }},
    {"`ModifyByKey(\"b4\", x, 1)`",
     [](auto& view, auto&, auto& x) { return view.ModifyByKey("b4", &x, 1); }},
    {"`AddLocal(x)`", [](auto& view, auto&, auto& x) { return view.AddLocal(&x); }},
    {"`ModifyLocal(b4)`", [](auto& view, auto& b4, auto&) { return view.ModifyLocal(&b4); }},
    {"`ModifyLocalByKey(\"b4\", x)`",
     [](auto& view, auto&, auto& x) { return view.ModifyLocalByKey("b4", &x); }},
    {"`RemoveLocal(b4)`", [](auto& view, auto& b4, auto&) { return view.RemoveLocal(&b4); }},
    {"`Reset`, `Next`", [](auto& view, auto&, auto&) { return view.Reset(), view.Next(); }},
    {"`SetPageSize(2)`, `Next`",
     [](auto& view, auto&, auto&) { return view.SetPageSize(2), view.Next(); }},
    {"`LetterStart('c')`", [](auto& view, auto&, auto&) { return view.LetterStart('c'); }},
};

class ViewStates : public ViewWalk {
 protected:
  void Enter(State state, CEntryView& view) {
    PutBook("aabbbccdee", 10);
    if (state == State::kNoBook) return;
    if (state == State::kFailed) SimulatorFail("IMSPReadAB", 0, kTimeoutExpired);
    view.AttachBook(&book);
    if (state == State::kOpened) return;
    view.First();
    SimulatorClearFaults();
    if (state == State::kBefore) view.Prev();
    while (state == State::kAfter && view.Next() != nullptr) {
    }
    if (state == State::kInSpan || state >= State::kDeleted) view.Find("b4", 1);
    ChangeBook(state);
  }

  void ChangeBook(State state) {
    EntryKey b4("b4");
    const CEmailEntry b41 = MakeEntry("b41");
    if (state == State::kDeleted) IMSPDeleteEntry(&email, &b4);
    if (state == State::kAdded) SimulatorPutEntry(BookKind::kEmail, nullptr, nullptr, &b41);
    if (state == State::kEmptied) IMSPClearAB(&email, nullptr);
  }

  template <class View>
  std::string Table(auto... pageSize) {
    std::string table =
        "\n| call | no book | opened | on b4 | before a0 | after e9 | read failed "
        "| b4 deleted | b41 added | emptied |\n|---|---|---|---|---|---|---|---|---|---|\n";
    for (const Row& row : kRows) {
      table += std::string("| ") + row.label + " |";
      for (int state = 0; state <= static_cast<int>(State::kEmptied); ++state) {
        View view(pageSize...);
        Enter(static_cast<State>(state), view);
        TakeCalls();
        CEmailEntry b4 = MakeEntry("b4", "new");
        CEmailEntry x = MakeEntry("x", "new");
        const Result result = row.run(view, b4, x);
        const std::size_t calls = TakeCalls().size();
        table += result.text.starts_with('=') ? " blank"
                                              : " " + result.text.substr(0, result.text.find('='));
        table += calls == 0 ? " |" : " (" + std::to_string(calls) + ") |";
      }
      table += "\n";
    }
    return table;
  }
};

TEST_F(ViewStates, OfTheSlidingView) {
  EXPECT_EQ(Table<CSlidingEntryView>(2), R"table(
| call | no book | opened | on b4 | before a0 | after e9 | read failed | b4 deleted | b41 added | emptied |
|---|---|---|---|---|---|---|---|---|---|
| `First` | null | a0 (3) | a0 (3) | a0 (3) | a0 (3) | a0 (3) | a0 (3) | a0 (3) | null (1) |
| `Last` | null | e9 (7) | e9 (7) | e9 (7) | e9 (7) | e9 (7) | e9 (7) | e9 (7) | null (1) |
| `Next` | null | null | c5 | null | null | null | c5 | c5 | c5 |
| `Next`, `Next` | null | null | c6 | null | null | null | c6 | c6 | c6 |
| `Prev` | null | null | b3 | null | null | null | b3 | b3 | b3 |
| `Prev`, `Prev` | null | null | b2 (3) | null | null | null | b2 (3) | b2 (3) | null (1) |
| `GetAt(7)` | null | d7 (6) | d7 (6) | d7 (6) | d7 (6) | d7 (6) | e8 (6) | c6 (6) | null (1) |
| `Find("b4", 0)` | null | b4 (3) | b4 | b4 (3) | b4 (3) | b4 (3) | b4 | b4 | b4 |
| `Find("b4", 1)` | null | b4 (3) | b4 (3) | b4 (3) | b4 (3) | b4 (3) | null (3) | b4 (3) | null (3) |
| `Find("b", 1)` | null | null (3) | null (3) | null (3) | null (3) | null (3) | null (3) | null (3) | null (3) |
| `Find("b", 1)`, `Next` | null | null (3) | b2 (3) | b3 (3) | c5 (3) | a1 (3) | b2 (3) | b2 (3) | null (3) |
| `FindPrefix("b")` | null | b2 (3) | b3 | b2 (3) | b2 (3) | b2 (3) | b3 | b3 | b3 |
| `FindPrefix("b")`, `FindNextPrefix` | null | b3 (3) | b4 | b3 (3) | b3 (3) | b3 (3) | b4 | b4 | b4 |
| `FindPrefix("b")`, `FindNext(1)` | null | null (3) | null | null (3) | null (3) | null (3) | null | null | null |
| `FindPrefix("c")`, `FindPrev(0)` | null | null (3) | null | null (3) | c5 (3) | null (3) | null | null | null |
| `FindLetter('d')` | null | d7 (2) | d7 (2) | d7 (2) | d7 (2) | d7 (2) | d7 (2) | d7 (2) | null (1) |
| `FindLetter('x')` | null | null (1) | null (1) | null (1) | null (1) | null (1) | null (1) | null (1) | null (1) |
| `Add(x, 1)` | -1 | -1 | -1 | -1 | -1 | -1 | -1 | -1 | -1 |
| `Remove(b4, 0)` | -1 | 0 (3) | 0 (3) | 0 (3) | 0 (3) | 0 (3) | 4 (3) | 0 (3) | 4 (3) |
| `Remove(b4, 1)` | -1 | 0 (1) | 0 (1) | 0 (1) | 0 (1) | 0 (1) | 4 (1) | 0 (1) | 4 (1) |
| `RemoveAt(4)` | -1 | -1 | -1 | -1 | -1 | -1 | -1 | -1 | -1 |
| `Modify(b4, 0)` | 0 | 0 | 0 | 0 | 0 | 0 | 0 | 0 | 0 |
| `Modify(b4, 1)` | 0 | 0 (1) | 0 (1) | 0 (1) | 0 (1) | 0 (1) | 4 (1) | 0 (1) | 4 (1) |
| `ModifyByKey("b4", x, 1)` | 0 | 0 (1) | 0 (1) | 0 (1) | 0 (1) | 0 (1) | 4 (1) | 0 (1) | 4 (1) |
| `AddLocal(x)` | 0 | 0 | 0 | 0 | 0 | 0 | 0 | 0 | 0 |
| `ModifyLocal(b4)` | 1 | 1 | 1 | 1 | 1 | 1 | 1 | 1 | 1 |
| `ModifyLocalByKey("b4", x)` | 1 | 1 | 1 | 1 | 1 | 1 | 1 | 1 | 1 |
| `RemoveLocal(b4)` | 1 | 1 | 1 | 1 | 1 | 1 | 1 | 1 | 1 |
| `Reset`, `Next` | null | null | null | null | null | null | null | null | null |
| `SetPageSize(2)`, `Next` | null | null | blank | blank | blank | blank | blank | blank | blank |
| `LetterStart('c')` | -1 | 5 (1) | 5 (1) | 5 (1) | 5 (1) | 5 (1) | 4 (1) | 6 (1) | -1 (1) |
)table");
}

TEST_F(ViewStates, OfTheLetterView) {
  EXPECT_EQ(Table<CLetterEntryView>(), R"table(
| call | no book | opened | on b4 | before a0 | after e9 | read failed | b4 deleted | b41 added | emptied |
|---|---|---|---|---|---|---|---|---|---|
| `First` | null | a0 (2) | a0 (1) | a0 (1) | a0 (1) | a0 (1) | a0 (1) | a0 (1) | null (1) |
| `Last` | null | null | e9 (1) | e9 (1) | e9 (1) | null | e9 (1) | e9 (1) | null (1) |
| `Next` | null | null | c5 (1) | a1 | e9 | null | c5 (1) | c5 (1) | null (1) |
| `Next`, `Next` | null | null | c6 (1) | b2 (1) | null | null | c6 (1) | c6 (1) | null (1) |
| `Prev` | null | null | b3 | null | e9 (1) | null | b3 | b3 | b3 |
| `Prev`, `Prev` | null | null | b2 | null | e8 (1) | null | b2 | b2 | b2 |
| `GetAt(7)` | null | null | d7 (2) | d7 (2) | d7 (2) | null | d7 (2) | d7 (2) | null (1) |
| `Find("b4", 0)` | null | b4 (2) | b4 | b4 (1) | b4 (1) | b4 (1) | b4 | b4 | b4 |
| `Find("b4", 1)` | null | b4 (2) | b4 (1) | b4 (1) | b4 (1) | b4 (1) | null (1) | b4 (1) | null (1) |
| `Find("b", 1)` | null | null (2) | null (1) | null (1) | null (1) | null (1) | null (1) | null (1) | null (1) |
| `Find("b", 1)`, `Next` | null | b3 (2) | c5 (2) | b3 (1) | b3 (1) | b3 (1) | c5 (2) | c5 (2) | null (1) |
| `FindPrefix("b")` | null | b2 (2) | b2 | b2 (1) | b2 (1) | b2 (1) | b2 | b2 | b2 |
| `FindPrefix("b")`, `FindNextPrefix` | null | b3 (2) | b3 | b3 (1) | b3 (1) | b3 (1) | b3 | b3 | b3 |
| `FindPrefix("b")`, `FindNext(1)` | null | null (2) | null | null (1) | null (1) | null (1) | null | null | null |
| `FindPrefix("c")`, `FindPrev(0)` | null | null (3) | null (2) | null (2) | null (2) | null (2) | null (2) | null (2) | null (1) |
| `FindLetter('d')` | null | d7 (2) | d7 (1) | d7 (1) | d7 (1) | d7 (1) | d7 (1) | d7 (1) | null (1) |
| `FindLetter('x')` | null | null (1) | null | null | null | null | null | null | null |
| `Add(x, 1)` | -1 | -1 | -1 | -1 | -1 | -1 | -1 | -1 | -1 |
| `Remove(b4, 0)` | 0 | 0 | -1 (2) | -1 (2) | -1 (2) | 0 | -1 (1) | -1 (2) | -1 (1) |
| `Remove(b4, 1)` | 0 | 0 | -1 (2) | -1 (2) | -1 (2) | 0 | -1 (1) | -1 (2) | -1 (1) |
| `RemoveAt(4)` | -1 | -1 | -1 | -1 | -1 | -1 | -1 | -1 | -1 |
| `Modify(b4, 0)` | 0 | 0 | 0 | 0 | 0 | 0 | 0 | 0 | 0 |
| `Modify(b4, 1)` | 0 | 0 | 0 (1) | 0 (1) | 0 (1) | 0 | 4 (1) | 0 (1) | 4 (1) |
| `ModifyByKey("b4", x, 1)` | 0 | 0 | 0 (1) | 0 (1) | 0 (1) | 0 | 4 (1) | 0 (1) | 4 (1) |
| `AddLocal(x)` | 0 | 0 | 0 | 0 | 0 | 0 | 0 | 0 | 0 |
| `ModifyLocal(b4)` | 1 | 1 | 1 | 1 | 1 | 1 | 1 | 1 | 1 |
| `ModifyLocalByKey("b4", x)` | 1 | 1 | 1 | 1 | 1 | 1 | 1 | 1 | 1 |
| `RemoveLocal(b4)` | 1 | 1 | 1 | 1 | 1 | 1 | 1 | 1 | 1 |
| `Reset`, `Next` | null | null | null | null | null | null | null | null | null |
| `SetPageSize(2)`, `Next` | null | null | c5 (1) | a1 | e9 | null | c5 (1) | c5 (1) | null (1) |
| `LetterStart('c')` | -1 | 5 (1) | 5 | 5 | 5 | 5 | 5 | 5 | 5 |
)table");
}

TEST_F(ViewStates, OfTheFullView) {
  EXPECT_EQ(Table<CFullEntryView>(), R"table(
| call | no book | opened | on b4 | before a0 | after e9 | read failed | b4 deleted | b41 added | emptied |
|---|---|---|---|---|---|---|---|---|---|
| `First` | null | a0 | a0 | a0 | a0 | null | a0 | a0 | a0 |
| `Last` | null | e9 | e9 | e9 | e9 | null | e9 | e9 | e9 |
| `Next` | null | a1 | c5 | a1 | null | null | c5 | c5 | c5 |
| `Next`, `Next` | null | b2 | c6 | b2 | null | null | c6 | c6 | c6 |
| `Prev` | null | null | b3 | null | e8 | null | b3 | b3 | b3 |
| `Prev`, `Prev` | null | null | b2 | null | d7 | null | b2 | b2 | b2 |
| `GetAt(7)` | null | d7 | d7 | d7 | d7 | null | d7 | d7 | d7 |
| `Find("b4", 0)` | null | b4 | b4 | b4 | b4 | null | b4 | b4 | b4 |
| `Find("b4", 1)` | null | b4 | b4 | b4 | b4 | null | b4 | b4 | b4 |
| `Find("b", 1)` | null | b2 | b2 | b2 | b2 | null | b2 | b2 | b2 |
| `Find("b", 1)`, `Next` | null | b3 | b3 | b3 | b3 | null | b3 | b3 | b3 |
| `FindPrefix("b")` | null | b2 | b2 | b2 | b2 | null | b2 | b2 | b2 |
| `FindPrefix("b")`, `FindNextPrefix` | null | null | null | null | null | null | null | null | null |
| `FindPrefix("b")`, `FindNext(1)` | null | null | null | null | null | null | null | null | null |
| `FindPrefix("c")`, `FindPrev(0)` | null | null | null | null | null | null | null | null | null |
| `FindLetter('d')` | null | d7 | d7 | d7 | d7 | null | d7 | d7 | d7 |
| `FindLetter('x')` | null | e9 | e9 | e9 | e9 | null | e9 | e9 | e9 |
| `Add(x, 1)` | -1 | 0 (3) | 0 (3) | 0 (3) | 0 (3) | 0 (3) | 0 (3) | 0 (3) | 0 (3) |
| `Remove(b4, 0)` | -1 | 0 (1) | 0 (1) | 0 (1) | 0 (1) | 0 (1) | 4 (1) | 0 (1) | 4 (1) |
| `Remove(b4, 1)` | -1 | 0 (2) | 0 (2) | 0 (2) | 0 (2) | 0 (2) | 4 (1) | 0 (2) | 4 (1) |
| `RemoveAt(4)` | -1 | 9 | 9 | 9 | 9 | -1 | 9 | 9 | 9 |
| `Modify(b4, 0)` | -1 | 0 (1) | 0 (1) | 0 (1) | 0 (1) | 0 (1) | 4 (1) | 0 (1) | 4 (1) |
| `Modify(b4, 1)` | -1 | 0 (2) | 0 (2) | 0 (2) | 0 (2) | 0 (2) | 4 (1) | 0 (2) | 4 (1) |
| `ModifyByKey("b4", x, 1)` | -1 | 0 (2) | 0 (2) | 0 (2) | 0 (2) | 0 (2) | 4 (1) | 0 (2) | 4 (1) |
| `AddLocal(x)` | -1 | 11 (2) | 11 (2) | 11 (2) | 11 (2) | 1 (2) | 11 (2) | 11 (2) | 11 (2) |
| `ModifyLocal(b4)` | 0 | 1 (1) | 1 (1) | 1 (1) | 1 (1) | 0 (1) | 0 (1) | 1 (1) | 0 (1) |
| `ModifyLocalByKey("b4", x)` | 0 | 1 (1) | 1 (1) | 1 (1) | 1 (1) | 0 (1) | 0 (1) | 1 (1) | 0 (1) |
| `RemoveLocal(b4)` | -1 | 9 (1) | 9 (1) | 9 (1) | 9 (1) | -1 (1) | -1 (1) | 9 (1) | -1 (1) |
| `Reset`, `Next` | null | a1 | c5 | a1 | null | null | c5 | c5 | c5 |
| `SetPageSize(2)`, `Next` | null | a1 | c5 | a1 | null | null | c5 | c5 | c5 |
| `LetterStart('c')` | -1 | 5 (1) | 5 (1) | 5 (1) | 5 (1) | 5 (1) | 4 (1) | 6 (1) | -1 (1) |
)table");
}

}  // namespace
}  // namespace quillkit
