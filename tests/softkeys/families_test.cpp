// The plain and the Fast family side by side, of keys and of items, where the cache is not what the
// server has, or has nobody to ask. The calls of each, and what their failures leave, stand where
// the exported functions are swept.

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

using testing::IsEmpty;
using testing::SizeIs;

constexpr Status kEarlier = 17;

// What a kind of change gives, and leaves of the names B, C and D.
struct Effect {
  std::int32_t success;
  std::int32_t failure;
  Names patched;
};

const Effect kAdds = {4, -1, {"B", "C", "D", "A"}};
const Effect kModifies = {1, 0, {"B", "C", "D"}};
const Effect kRenames = {1, 0, {"B", "A", "D"}};
const Effect kRemoves = {2, -1, {"B", "D"}};

enum Of { kKeys, kItems };  // the items are those of the key B

struct Change {
  const char* name;
  Of of;
  const Effect& effect;  // of Fast
  std::function<Status(CTopLevelAB&)> plain;
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
      {"AddKey", kKeys, kAdds, [](Book& book) { return book.AddKey("A", true); },
       [](Book& book) { return book.FastKeyAdd(Key("A")); }},
      {"ModifyKey", kKeys, kModifies, [](Book& book) { return book.ModifyKey(Key("C"), true); },
       [](Book& book) { return book.FastKeyModify(&Key("C")); }},
      {"RenameKey", kKeys, kRenames, [](Book& book) { return book.RenameSoftKey("C", Key("A")); },
       [](Book& book) { return book.FastKeyRename("C", Key("A")); }},
      {"RemoveKey", kKeys, kRemoves, [](Book& book) { return book.DeleteKey("C", true); },
       [](Book& book) { return book.FastKeyRemove(Key("C")); }},
      {"AddItem", kItems, kAdds,
       [](Book& book) { return book.KeyAt(0)->AddMenuItem(Item("A"), true); },
       [](Book& book) { return book.KeyAt(0)->FastItemAdd(Item("A")); }},
      {"ModifyItem", kItems, kModifies,
       [](Book& book) { return book.KeyAt(0)->ModifyMenuItem(Item("C"), true); },
       [](Book& book) { return book.KeyAt(0)->FastItemModify(Item("C")); }},
      {"RenameItem", kItems, kRenames,
       [](Book& book) { return book.KeyAt(0)->RenameMenuItem("C", Item("A"), true); },
       [](Book& book) { return book.KeyAt(0)->FastItemRename("C", Item("A")); }},
      {"RemoveItem", kItems, kRemoves,
       [](Book& book) { return book.KeyAt(0)->DeleteMenuItem("C", true); },
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
    book.Load(1);
    SimulatorClearJournal();
  }

  Names Cached() { return ofItems ? NamesOf(*book.KeyAt(0)) : NamesOf(book); }

  const Change& change = GetParam();
  const Effect& effect = change.effect;
  const bool ofItems = change.of == kItems;
};

TEST_P(Families, FastPatchesTheCacheInPlace) {
  CSoftKey* first = book.KeyAt(0);
  EXPECT_EQ(change.fast(book), effect.success);
  EXPECT_EQ(Cached(), effect.patched);
  EXPECT_EQ(book.KeyAt(0), first);
  for (int i = 0; i < first->ItemCount(); ++i) {
    CMenuItem stored;
    const std::string name(first->ItemAt(i)->name.View());
    EXPECT_EQ(SimulatorFindEntry(BookKind::kKeyItems, "B", nullptr, name.c_str(), &stored), 1);
    EXPECT_EQ(first->ItemAt(i)->path, stored.path) << name;
  }
}

TEST_P(Families, FastFailsWhenTheServerChangedWhatIsNotCached) {
  if (ofItems) {
    book.KeyAt(0)->ItemAt(1)->SetName("X");
  } else {
    book.KeyAt(1)->SetKeyName("X");
  }
  const bool adds = &effect == &kAdds;
  EXPECT_EQ(change.fast(book), adds ? 4 : effect.failure);
  EXPECT_EQ(TheAgent.LastError(), kNoError);
  EXPECT_THAT(TakeCalls(), SizeIs(1));
  EXPECT_EQ(Cached(), adds ? (Names{"B", "X", "D", "A"}) : (Names{"B", "X", "D"}));
}

TEST_P(Families, NothingIsAskedWithoutAScannerOrAnOwner) {
  CTopLevelAB unattached;
  unattached.Attach(box, 1);
  unattached.Attach(nullptr, 0);
  book.Load(0);
  TakeCalls();
  TheAgent.SetError(kEarlier);
  EXPECT_EQ(change.plain(unattached), kRefused);
  EXPECT_EQ(change.fast(unattached), effect.failure);
  if (ofItems) {  // the keys of a listing alone have no owner
    EXPECT_EQ(change.plain(book), kRefused);
    EXPECT_EQ(change.fast(book), effect.failure);
  }
  EXPECT_EQ(TheAgent.LastError(), kEarlier);
  EXPECT_THAT(TakeCalls(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Changes, Families, testing::ValuesIn(Changes()),
                         [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace quillkit
