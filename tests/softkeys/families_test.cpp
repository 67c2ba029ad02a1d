// Compares the plain and the Fast functions of keys and items. The sweep of the exported functions
// tests their calls and the effects of failures.

#include <functional>
#include <ostream>

#include "tests/softkeys/panel.h"

namespace quillkit {
namespace {

struct Change {
  const char* name;
  bool ofItems;
  std::int32_t success;  // of Fast
  std::int32_t failure;
  Names changed;  // the names B, C and D after it
  std::function<Status(CTopLevelAB&)> plain;
  std::function<std::int32_t(CTopLevelAB&)> fast;
};

std::ostream& operator<<(std::ostream& out, const Change& each) {
  return out << each.name;
}

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

using Book = CTopLevelAB;
const Names kAdded = {"B", "C", "D", "A"};
const Names kSame = {"B", "C", "D"};
const Names kRenamed = {"B", "A", "D"};
const Names kRemoved = {"B", "D"};
const Change kChanges[] = {
    {"AddKey", false, 4, -1, kAdded, [](Book& book) { return book.AddKey("A", true); },
     [](Book& book) { return book.FastKeyAdd(Key("A")); }},
    {"ModifyKey", false, 1, 0, kSame, [](Book& book) { return book.ModifyKey(Key("C"), true); },
     [](Book& book) { return book.FastKeyModify(&Key("C")); }},
    {"RenameKey", false, 1, 0, kRenamed,
     [](Book& book) { return book.RenameSoftKey("C", Key("A")); },
     [](Book& book) { return book.FastKeyRename("C", Key("A")); }},
    {"RemoveKey", false, 2, -1, kRemoved, [](Book& book) { return book.DeleteKey("C", true); },
     [](Book& book) { return book.FastKeyRemove(Key("C")); }},
    {"AddItem", true, 4, -1, kAdded,
     [](Book& book) { return book.KeyAt(0)->AddMenuItem(Item("A"), true); },
     [](Book& book) { return book.KeyAt(0)->FastItemAdd(Item("A")); }},
    {"ModifyItem", true, 1, 0, kSame,
     [](Book& book) { return book.KeyAt(0)->ModifyMenuItem(Item("C"), true); },
     [](Book& book) { return book.KeyAt(0)->FastItemModify(Item("C")); }},
    {"RenameItem", true, 1, 0, kRenamed,
     [](Book& book) { return book.KeyAt(0)->RenameMenuItem("C", Item("A"), true); },
     [](Book& book) { return book.KeyAt(0)->FastItemRename("C", Item("A")); }},
    {"RemoveItem", true, 2, -1, kRemoved,
     [](Book& book) { return book.KeyAt(0)->DeleteMenuItem("C", true); },
     [](Book& book) { return book.KeyAt(0)->FastItemRemove(Item("C")); }},
};

class Families : public PanelTest, public testing::WithParamInterface<Change> {
 protected:
  Names Cached() { return GetParam().ofItems ? NamesOf(*book.KeyAt(0)) : NamesOf(book); }
};

TEST_P(Families, FastPatchesTheCacheInPlace) {
  CSoftKey* first = book.KeyAt(0);
  EXPECT_EQ(GetParam().fast(book), GetParam().success);
  EXPECT_EQ(Cached(), GetParam().changed);
  EXPECT_EQ(book.KeyAt(0), first);
  for (int i = 0; i < first->ItemCount(); ++i) {
    CMenuItem stored;
    const std::string name(first->ItemAt(i)->name.View());
    EXPECT_EQ(SimulatorFindEntry(BookKind::kKeyItems, "B", nullptr, name.c_str(), &stored), 1);
    EXPECT_EQ(first->ItemAt(i)->path, stored.path) << name;
  }
}

TEST_P(Families, FastFailsAfterItsCallWhenTheCacheHasNoSuchName) {
  book.KeyAt(0)->ItemAt(1)->SetName("X");
  book.KeyAt(1)->SetKeyName("X");
  const bool adds = GetParam().success == 4;
  EXPECT_EQ(GetParam().fast(book), adds ? 4 : GetParam().failure);
  EXPECT_EQ(TheAgent.LastError(), kNoError);
  EXPECT_EQ(Cached(), adds ? (Names{"B", "X", "D", "A"}) : (Names{"B", "X", "D"}));
}

TEST_P(Families, MakesNoCallWithoutAScannerOrAnOwner) {
  CTopLevelAB unattached;
  unattached.Attach(box, 1);
  unattached.Attach(nullptr, 0);
  std::vector<CTopLevelAB*> refusing = {&unattached};
  book.Load(0);  // keys without items have no owner
  if (GetParam().ofItems) refusing.push_back(&book);
  TakeCalls();
  TheAgent.SetError(kEarlier);
  for (CTopLevelAB* each : refusing) {
    EXPECT_EQ(GetParam().plain(*each), kRefused);
    EXPECT_EQ(GetParam().fast(*each), GetParam().failure);
  }
  EXPECT_EQ(TheAgent.LastError(), kEarlier);
  EXPECT_THAT(TakeCalls(), testing::IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Changes, Families, testing::ValuesIn(kChanges),
                         [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace quillkit
