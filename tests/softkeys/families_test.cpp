// The plain and the Fast family side by side, of keys and of items: results, calls, cache and
// server.

#include <gtest/gtest.h>

#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "bridge/the_agent.h"
#include "simulator/simulator.h"
#include "tests/softkeys/panel.h"

namespace quillkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr Status kFault = 11;
constexpr Status kEarlier = 17;

// What a kind of change gives and leaves, of the names B, C and D before it.
struct Effect {
  std::int32_t success;  // of Fast
  std::int32_t failure;  // of Fast
  Names patched;         // the cache after Fast
  Names server;
};

const Effect kAdds = {4, -1, {"B", "C", "D", "A"}, {"A", "B", "C", "D"}};
const Effect kModifies = {1, 0, {"B", "C", "D"}, {"B", "C", "D"}};
const Effect kRenames = {1, 0, {"B", "A", "D"}, {"A", "B", "D"}};
const Effect kRemoves = {2, -1, {"B", "D"}, {"B", "D"}};

enum Of { kKeys, kItems };  // the items are those of the key B

struct Change {
  const char* name;
  Of of;
  const Effect& effect;
  const char* call;
  std::function<Status(CTopLevelAB&, bool)> plain;
  std::function<std::int32_t(CTopLevelAB&)> fast;
};

std::ostream& operator<<(std::ostream& out, const Change& each) {
  return out << each.name;
}

// A key or an item that carries a name and nothing else.
CSoftKey& Key(const char* name) {
  static CSoftKey key;
  key.SetKeyName(name);
  return key;
}

CMenuItem* Item(const char* name) {
  static CMenuItem item;
  item.SetName(name);
  item.SetPath("new");
  return &item;
}

std::vector<Change> Changes() {
  using Book = CTopLevelAB;
  return {
      {"AddKey", kKeys, kAdds, "IMSPCreateEntry 256:TOPAB A",
       [](Book& book, bool reload) { return book.AddKey("A", reload); },
       [](Book& book) { return book.FastKeyAdd(Key("A")); }},
      {"ModifyKey", kKeys, kModifies, "IMSPModifyEntry 256:TOPAB C C",
       [](Book& book, bool reload) { return book.ModifyKey(Key("C"), reload); },
       [](Book& book) { return book.FastKeyModify(&Key("C")); }},
      {"RenameKey", kKeys, kRenames, "IMSPModifyEntry 256:TOPAB C A",
       [](Book& book, bool) { return book.RenameSoftKey("C", Key("A")); },
       [](Book& book) { return book.FastKeyRename("C", Key("A")); }},
      {"RemoveKey", kKeys, kRemoves, "IMSPDeleteAB 512:C",
       [](Book& book, bool reload) { return book.DeleteKey("C", reload); },
       [](Book& book) { return book.FastKeyRemove(Key("C")); }},
      {"AddItem", kItems, kAdds, "IMSPCreateEntry 512:B A",
       [](Book& book, bool reload) { return book.KeyAt(0)->AddMenuItem(Item("A"), reload); },
       [](Book& book) { return book.KeyAt(0)->FastItemAdd(Item("A")); }},
      {"ModifyItem", kItems, kModifies, "IMSPModifyEntry 512:B C C",
       [](Book& book, bool reload) { return book.KeyAt(0)->ModifyMenuItem(Item("C"), reload); },
       [](Book& book) { return book.KeyAt(0)->FastItemModify(Item("C")); }},
      {"RenameItem", kItems, kRenames, "IMSPModifyEntry 512:B C A",
       [](Book& book, bool reload) {
         return book.KeyAt(0)->RenameMenuItem("C", Item("A"), reload);
       },
       [](Book& book) { return book.KeyAt(0)->FastItemRename("C", Item("A")); }},
      {"RemoveItem", kItems, kRemoves, "IMSPDeleteEntry 512:B C",
       [](Book& book, bool reload) { return book.KeyAt(0)->DeleteMenuItem("C", reload); },
       [](Book& book) { return book.KeyAt(0)->FastItemRemove(Item("C")); }},
  };
}

// The keys B, C and D, and items of the same names under B.
class Families : public PanelTest, public testing::WithParamInterface<Change> {
 protected:
  Families() {
    PutKey("B", {"B", "C", "D"});
    PutKey("C", {});
    PutKey("D", {});
    book_.Load(1);
    TheAgent.SetError(kEarlier);
    SimulatorClearJournal();
  }

  Names Cached() { return ofItems_ ? NamesOf(*book_.KeyAt(0)) : NamesOf(book_); }
  Names Stored() { return ofItems_ ? ServerItems("B") : ServerKeys(); }

  void AppendReloadCalls(std::vector<std::string>& calls) const {
    if (ofItems_) return calls.push_back(ReadCall("B"));
    calls.push_back(kListCall);
    for (const std::string& each : effect_.server) calls.push_back(ReadCall(each));
  }

  const Change& change_ = GetParam();
  const Effect& effect_ = change_.effect;
  const bool ofItems_ = change_.of == kItems;
  const bool reloads_ = ofItems_ || &effect_ != &kRenames;  // a plain rename of a key never does
  const Names before_ = {"B", "C", "D"};
};

TEST_P(Families, PlainWithReloadReadsAnew) {
  std::vector<std::string> calls = {change_.call};
  if (reloads_) AppendReloadCalls(calls);
  EXPECT_EQ(change_.plain(book_, true), kNoError);
  EXPECT_EQ(TakeCalls(), calls);
  EXPECT_EQ(Stored(), effect_.server);
  EXPECT_EQ(Cached(), reloads_ ? effect_.server : before_);
}

TEST_P(Families, PlainWithoutReloadLeavesTheCache) {
  EXPECT_EQ(change_.plain(book_, false), kNoError);
  EXPECT_THAT(TakeCalls(), ElementsAre(change_.call));
  EXPECT_EQ(Stored(), effect_.server);
  EXPECT_EQ(Cached(), before_);
}

TEST_P(Families, FastPatchesTheCacheInPlace) {
  CSoftKey* first = book_.KeyAt(0);
  EXPECT_EQ(change_.fast(book_), effect_.success);
  EXPECT_THAT(TakeCalls(), ElementsAre(change_.call));
  EXPECT_EQ(Stored(), effect_.server);
  EXPECT_EQ(Cached(), effect_.patched);
  EXPECT_EQ(book_.KeyAt(0), first);
  for (int i = 0; i < first->ItemCount(); ++i) {
    CMenuItem stored;
    const std::string name(first->ItemAt(i)->name.View());
    EXPECT_EQ(SimulatorFindEntry(BookKind::kKeyItems, "B", nullptr, name.c_str(), &stored), 1);
    EXPECT_EQ(first->ItemAt(i)->path, stored.path) << name;
  }
}

TEST_P(Families, ARefusalChangesNothing) {
  SimulatorFail(nullptr, 0, kFault);
  EXPECT_EQ(change_.plain(book_, true), kFault);
  EXPECT_EQ(change_.fast(book_), effect_.failure);
  EXPECT_EQ(TheAgent.LastError(), kFault);
  EXPECT_THAT(TakeCalls(), ElementsAre(change_.call, change_.call));
  EXPECT_EQ(Cached(), before_);
}

// The second call is the reload's first. A read that fails leaves the count: the items are blank.
TEST_P(Families, AReloadThatFailsIsTheResultOfAChangeThatStands) {
  SimulatorSetLies(kLieFailedCount);
  SimulatorFail(nullptr, 2, kFault);
  EXPECT_EQ(change_.plain(book_, true), reloads_ ? kFault : kNoError);
  EXPECT_EQ(Stored(), effect_.server);
  EXPECT_EQ(Cached(), reloads_ ? Names(ofItems_ ? 512 : 0) : before_);
}

TEST_P(Families, FastFailsWhenTheServerChangedWhatIsNotCached) {
  if (ofItems_) {
    book_.KeyAt(0)->ItemAt(1)->SetName("X");
  } else {
    book_.KeyAt(1)->SetKeyName("X");
  }
  const bool adds = &effect_ == &kAdds;
  EXPECT_EQ(change_.fast(book_), adds ? 4 : effect_.failure);
  EXPECT_EQ(Stored(), effect_.server);
  EXPECT_EQ(Cached(), adds ? (Names{"B", "X", "D", "A"}) : (Names{"B", "X", "D"}));
}

TEST_P(Families, NothingIsAskedWithoutAScannerOrAnOwner) {
  CTopLevelAB unattached;
  unattached.Attach(box_, 1);
  unattached.Attach(nullptr, 0);
  book_.Load(0);
  TakeCalls();
  TheAgent.SetError(kEarlier);
  EXPECT_EQ(change_.plain(unattached, true), kRefused);
  EXPECT_EQ(change_.fast(unattached), effect_.failure);
  if (ofItems_) {  // the keys of a listing alone have no owner
    EXPECT_EQ(change_.plain(book_, true), kRefused);
    EXPECT_EQ(change_.fast(book_), effect_.failure);
  }
  EXPECT_EQ(TheAgent.LastError(), kEarlier);
  EXPECT_THAT(TakeCalls(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Changes, Families, testing::ValuesIn(Changes()),
                         [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace quillkit
