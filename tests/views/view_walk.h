// Random walks through generated books: every operation, with failing calls and changes that the
// view does not make itself.

#ifndef QUILLKIT_TESTS_VIEWS_VIEW_WALK_H_
#define QUILLKIT_TESTS_VIEWS_VIEW_WALK_H_

#include <algorithm>
#include <functional>
#include <numeric>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "books/email_ab.h"
#include "bridge/imsp_api.h"
#include "simulator/simulator.h"
#include "tests/support/appliance_fixture.h"
#include "tests/views/model_view.h"

namespace quillkit {

struct Arguments {
  std::string_view key;
  CEmailEntry* entry;
  std::int32_t index;  // or a size
  std::int32_t flag;
  char letter;
};

struct Result {
  Result(std::int32_t number) : text(std::to_string(number)) {}
  Result(CEmailEntry* found) : text("null"), entry(found) {
    if (found == nullptr) return;
    text = std::string(found->Name()) + "=" + found->Address() + ":" + std::to_string(found->flags);
  }
  std::string text;
  CEmailEntry* entry = nullptr;
};

struct ViewOperation {
  const char* name;
  std::function<Result(CEntryView&, const Arguments&)> run;
};

inline const ViewOperation kViewOperations[] = {
    {"Next", [](auto& view, auto&) { return view.Next(); }},
    {"Prev", [](auto& view, auto&) { return view.Prev(); }},
    {"First", [](auto& view, auto&) { return view.First(); }},
    {"Last", [](auto& view, auto&) { return view.Last(); }},
    {"GetAt", [](auto& view, auto& with) { return view.GetAt(with.index); }},
    {"Find", [](auto& view, auto& with) { return view.Find(with.key, with.flag); }},
    {"FindLetter", [](auto& view, auto& with) { return view.FindLetter(with.letter); }},
    {"FindNext", [](auto& view, auto& with) { return view.FindNext(with.flag); }},
    {"FindPrev", [](auto& view, auto& with) { return view.FindPrev(with.flag); }},
    {"FindPrefix", [](auto& view, auto& with) { return view.FindPrefix(with.key); }},
    {"FindNextPrefix", [](auto& view, auto&) { return view.FindNextPrefix(); }},
    {"Add", [](auto& view, auto& with) { return view.Add(with.entry, with.flag); }},
    {"Remove", [](auto& view, auto& with) { return view.Remove(with.entry, with.flag); }},
    {"RemoveAt", [](auto& view, auto& with) { return view.RemoveAt(with.index); }},
    {"Modify", [](auto& view, auto& with) { return view.Modify(with.entry, with.flag); }},
    {"ModifyByKey",
     [](auto& view, auto& with) { return view.ModifyByKey(with.key, with.entry, with.flag); }},
    {"AddLocal", [](auto& view, auto& with) { return view.AddLocal(with.entry); }},
    {"ModifyLocal", [](auto& view, auto& with) { return view.ModifyLocal(with.entry); }},
    {"ModifyLocalByKey",
     [](auto& view, auto& with) { return view.ModifyLocalByKey(with.key, with.entry); }},
    {"RemoveLocal", [](auto& view, auto& with) { return view.RemoveLocal(with.entry); }},
    {"Reset", [](auto& view, auto&) { return view.Reset(), 0; }},
    {"SetPageSize", [](auto& view, auto& with) { return view.SetPageSize(with.index); }},
};

// Records the numbers of calls at BeginAccess and EndAccess.
class BracketedBook : public CEmailAB {
 public:
  void BeginAccess() override { brackets += "[" + std::to_string(SimulatorCallCount()); }
  void EndAccess() override { brackets += "]" + std::to_string(SimulatorCallCount()); }

  std::string brackets;
};

class ViewWalk : public ApplianceTest {
 protected:
  ViewWalk() {
    std::iota(firstBytes[3].begin(), firstBytes[3].end(), '\1');
    book.Attach(LogIn(), 0);
  }

  // From 0 to `sides` - 1. Not std::uniform_int_distribution, which differs between libraries.
  std::int32_t Roll(std::size_t sides) { return static_cast<std::int32_t>(random() % sides); }

  // Replaces the book on the server by `size` entries and returns their names. Their first bytes
  // are those of `firsts` in turn; a number follows, so that some names are the beginning of
  // others.
  std::vector<std::string> PutBook(std::string_view firsts, std::size_t size) {
    SimulatorClearFaults();
    IMSPClearAB(&email, nullptr);
    std::vector<std::string> names;
    for (std::size_t i = 0; i < size; ++i) {
      names.push_back(firsts[i % firsts.size()] + std::to_string(i));
      const CEmailEntry entry = MakeEntry(names.back(), "at", 1);
      SimulatorPutEntry(BookKind::kEmail, nullptr, nullptr, &entry);
    }
    SimulatorClearJournal();
    return names;
  }

  // Returns a name of the book, the beginning of one, or a name that the book lacks.
  std::string RollName(const std::vector<std::string>& known) {
    const std::int32_t kind = Roll(20);
    if (kind == 0) return {};
    if (kind == 1 || known.empty()) return std::string(kind == 1 ? 40 : 2, 'n');
    std::string name = known.begin()[Roll(known.size())];
    if (kind < 7) name.resize(1 + static_cast<std::size_t>(Roll(name.size())));
    return kind == 7 ? name + "x" : name;
  }

  // Returns a text for each step: the operation, its result, its brackets and its calls.
  std::vector<std::string> Walk(CEntryView&& view, std::string_view firsts, std::size_t size,
                                std::uint32_t seed, int steps) {
    constexpr Status kFailures[] = {kDataNotFound, kAccessDenied, kTimeoutExpired, kMoreData};
    random.seed(seed);
    std::vector<std::string> known = PutBook(firsts, size);
    SimulatorInflateSizes(Roll(4) == 0 ? 3 : 0);
    std::vector<std::string> texts = {"AttachBook: " + std::to_string(view.AttachBook(&book))};
    CEmailEntry* held = nullptr;  // returned by the step before
    for (int i = 0; i < steps; ++i) {
      if (Roll(25) == 0) SimulatorFail(nullptr, 1 + Roll(4), kFailures[Roll(4)]);
      const auto& operation = kViewOperations[Roll(Roll(2) ? 2 : std::size(kViewOperations))];
      const std::string key = RollName(known);
      CEmailEntry entry = MakeEntry(RollName(known).substr(0, 31), std::to_string(i), 1);
      Arguments with = {key, &entry, Roll(known.size() + 2) - 1, Roll(3),
                        key.empty() ? static_cast<char>(Roll(256)) : key.front()};
      if (!entry.name.IsEmpty()) known.emplace_back(entry.Name());
      EntryKey removed(RollName(known).substr(0, 31));
      if (Roll(20) == 0) SimulatorPutEntry(BookKind::kEmail, nullptr, nullptr, &entry);
      if (Roll(20) == 0) IMSPDeleteEntry(&email, &removed);
      if (Roll(4) == 0 && held != nullptr) with.entry = held, with.key = held->name.View();
      std::string text = "step " + std::to_string(i) + ": " + operation.name + " with the key '";
      text += std::string(with.key) + "' and entry " + Result(with.entry).text;
      const Result result = operation.run(view, with);
      held = result.entry;
      text += " returned " + result.text + ", access " + std::exchange(book.brackets, {});
      for (const std::string& call : TakeCalls()) text += "\n  " + call;
      EXPECT_TRUE(held == nullptr || held->IsValid()) << text;
      texts.push_back(text);
    }
    return texts;
  }

  // Fails at the first step that the view and the model do differently.
  template <class View, class Model>
  void Compare(auto... pageSize) {
    constexpr std::size_t kSizes[] = {0, 1, 2, 15, 16, 17, 20, 40, 48, 49, 512, 513};
    std::uint32_t seed = 0;
    for (const std::size_t size : kSizes) {
      for (const std::string& firsts : firstBytes) {
        const auto expected = Walk(Model(pageSize...), firsts, size, ++seed, 200);
        const auto actual = Walk(View(pageSize...), firsts, size, seed, 200);
        const auto [step, modelStep] = std::ranges::mismatch(actual, expected);
        if (step == actual.end()) continue;
        ASSERT_EQ(*step, *modelStep) << "in a book of " << size << " entries, seed " << seed;
      }
    }
  }

  // One letter; several; some above 127; and more than a census of 128 rows has.
  std::vector<std::string> firstBytes = {"n", "qangz", "Az\x80\xC4\xE4\xFF", std::string(255, 0)};
  std::mt19937 random;
  ABIdent email{BookKind::kEmail, kEmailBook};
  BracketedBook book;
};

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_VIEWS_VIEW_WALK_H_
