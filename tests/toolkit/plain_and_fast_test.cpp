// The two families that change keys and items, side by side: what each sends, gives, and leaves in
// memory, with and without a reload, also where server and memory disagree.

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "bridge/the_agent.h"
#include "tests/support/appliance_fixture.h"
#include "tests/toolkit/case_name.h"
#include "toolkit/quillkit.h"

namespace quillkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Names = std::vector<std::string>;

// The keys in memory, each with its items behind it, and each item with its path.
Names Panel(CTopLevelAB* book) {
  Names panel;
  for (std::int32_t i = 0; i < GetCount(book); ++i) {
    CSoftKey* key = GetKeyAt(book, i);
    std::string& line = panel.emplace_back(GetKeyName(key));
    for (std::int32_t at = 0; at < GetItemCount(key); ++at) {
      CMenuItem* item = GetItemAt(key, at);
      line += std::string(" ") + GetItemName(item) + Path(item);
    }
  }
  return panel;
}

// What a change works with: the book, its key Scan, and an item and a key of the application that
// carry the change's name.
struct Stage {
  CTopLevelAB* book = nullptr;
  CSoftKey* scan = nullptr;
  CMenuItem item;
  std::unique_ptr<CSoftKey, void (*)(CSoftKey*)> carrier{nullptr, DestroySoftKey};
};

struct Change {
  const char* name;
  const char* carried;
  std::function<std::int32_t(Stage&, std::int32_t reload)> plain;
  std::function<std::int32_t(Stage&)> fast;
  const char* request;
  std::int32_t fastResult;
  Names reads;     // the keys that a reload reads, in order; those of all keys behind a listing
  Names reloaded;  // memory after the plain change with reload
  Names patched;   // memory after the Fast one
};

std::ostream& operator<<(std::ostream& out, const Change& each) {
  return out << each.name;
}

std::vector<Change> ItemChanges() {
  const auto add = [](Stage& on, int reload) { return AddMenuItem(on.scan, &on.item, reload); };
  const auto fastAdd = [](Stage& on) { return FastItemAdd(on.scan, &on.item); };
  const auto modify = [](Stage& on, int reload) {
    return ModifyMenuItem(on.scan, &on.item, reload);
  };
  const auto fastModify = [](Stage& on) { return FastItemModify(on.scan, &on.item); };
  const auto rename = [](const char* oldName) {
    return
        [=](Stage& on, int reload) { return RenameMenuItem(on.scan, oldName, &on.item, reload); };
  };
  const auto fastRename = [](const char* oldName) {
    return [=](Stage& on) { return FastItemRename(on.scan, oldName, &on.item); };
  };
  const auto remove = [](Stage& on, int reload) {
    return DeleteMenuItem(on.scan, GetItemName(&on.item), reload);
  };
  const auto fastRemove = [](Stage& on) { return FastItemRemove(on.scan, &on.item); };
  const Names scan = {"Scan"};
  const std::string send = "Send Fax";
  const Names untouched = {"Scan Desk Mail", send};
  return {
      {"AddItem",
       "Bin",
       add,
       fastAdd,
       "IMSPCreateEntry 512:Scan Bin",
       3,
       scan,
       {"Scan Bin/new Desk Lost Mail", send},
       {"Scan Desk Mail Bin/new", send}},
      {"ModifyItem",
       "Desk",
       modify,
       fastModify,
       "IMSPModifyEntry 512:Scan Desk Desk",
       1,
       scan,
       {"Scan Desk/new Lost Mail", send},
       {"Scan Desk/new Mail", send}},
      {"RenameItem",
       "Zone",
       rename("Desk"),
       fastRename("Desk"),
       "IMSPModifyEntry 512:Scan Desk Zone",
       1,
       scan,
       {"Scan Lost Mail Zone/new", send},
       {"Scan Zone/new Mail", send}},
      {"RemoveItem",
       "Desk",
       remove,
       fastRemove,
       "IMSPDeleteEntry 512:Scan Desk",
       1,
       scan,
       {"Scan Lost Mail", send},
       {"Scan Mail", send}},
      {"ModifyLostItem",
       "Lost",
       modify,
       fastModify,
       "IMSPModifyEntry 512:Scan Lost Lost",
       0,
       scan,
       {"Scan Desk Lost/new Mail", send},
       untouched},
      {"RenameLostItem",
       "Zone",
       rename("Lost"),
       fastRename("Lost"),
       "IMSPModifyEntry 512:Scan Lost Zone",
       0,
       scan,
       {"Scan Desk Mail Zone/new", send},
       untouched},
      {"RemoveLostItem",
       "Lost",
       remove,
       fastRemove,
       "IMSPDeleteEntry 512:Scan Lost",
       -1,
       scan,
       {"Scan Desk Mail", send},
       untouched},
  };
}

std::vector<Change> KeyChanges() {
  const auto add = [](Stage& on, int reload) {
    return AddKey(on.book, GetKeyName(on.carrier.get()), reload);
  };
  const auto fastAdd = [](Stage& on) { return FastKeyAdd(on.book, on.carrier.get()); };
  const auto modify = [](Stage& on, int reload) {
    return ModifyKey(on.book, on.carrier.get(), reload);
  };
  const auto fastModify = [](Stage& on) { return FastKeyModify(on.book, on.carrier.get()); };
  const auto remove = [](Stage& on, int reload) {
    return DeleteKey(on.book, GetKeyName(on.carrier.get()), reload);
  };
  const auto fastRemove = [](Stage& on) { return FastKeyRemove(on.book, on.carrier.get()); };
  const std::string scan = "Scan Desk Lost Mail";
  const Names untouched = {"Scan Desk Mail", "Send Fax"};
  return {
      {"AddKey",
       "Copy",
       add,
       fastAdd,
       "IMSPCreateEntry 256:TOPAB Copy",
       3,
       {"Copy", "Lost", "Scan", "Send"},
       {"Copy", "Lost Item", scan, "Send Fax"},
       {"Scan Desk Mail", "Send Fax", "Copy"}},
      {"RemoveKey",
       "Send",
       remove,
       fastRemove,
       "IMSPDeleteAB 512:Send",
       1,
       {"Lost", "Scan"},
       {"Lost Item", scan},
       {"Scan Desk Mail"}},
      {"ModifyLostKey",
       "Lost",
       modify,
       fastModify,
       "IMSPModifyEntry 256:TOPAB Lost Lost",
       0,
       {"Lost", "Scan", "Send"},
       {"Lost Item", scan, "Send Fax"},
       untouched},
      {"RemoveLostKey",
       "Lost",
       remove,
       fastRemove,
       "IMSPDeleteAB 512:Lost",
       -1,
       {"Scan", "Send"},
       {scan, "Send Fax"},
       untouched},
  };
}

// In memory stand the keys Scan (Desk, Mail) and Send (Fax). The key Lost (Item) and Scan's item
// Lost came to the server later.
class PlainAndFast : public ApplianceTest {
 protected:
  PlainAndFast() {
    PutKey("Scan", {"Desk", "Mail"});
    PutKey("Send", {"Fax"});
    stage_.book = GetTopLevelAbook(LogIn());
    EXPECT_EQ(LoadTopLevelAbook(stage_.book, 1), 0);
    stage_.scan = GetKeyAt(stage_.book, 0);
    PutKey("Scan", {"Lost"});
    PutKey("Lost", {"Item"});
    TakeCalls();
  }

  void Carry(const char* name) {
    stage_.item.SetName(name);
    stage_.item.SetPath("/new");
    CSoftKey* carrier = nullptr;
    EXPECT_EQ(CreateSoftKey(name, stage_.book, &carrier), 1);
    stage_.carrier.reset(carrier);
  }

  Stage stage_;
};

class EachChange : public PlainAndFast, public testing::WithParamInterface<Change> {
 protected:
  EachChange() { Carry(GetParam().carried); }
};

TEST_P(EachChange, FastPatchesMemoryAndReadsNothing) {
  EXPECT_EQ(GetParam().fast(stage_), GetParam().fastResult);
  EXPECT_THAT(TakeCalls(), ElementsAre(GetParam().request));
  EXPECT_EQ(Panel(stage_.book), GetParam().patched);
  EXPECT_EQ(GetLastToolkitError(), 0);
}

TEST_P(EachChange, PlainLeavesMemoryAsItWas) {
  EXPECT_EQ(GetParam().plain(stage_, 0), 0);
  EXPECT_THAT(TakeCalls(), ElementsAre(GetParam().request));
  EXPECT_THAT(Panel(stage_.book), ElementsAre("Scan Desk Mail", "Send Fax"));
}

TEST_P(EachChange, PlainWithReloadShowsWhatTheServerHolds) {
  EXPECT_EQ(GetParam().plain(stage_, 1), 0);
  Names calls = {GetParam().request};
  if (GetParam().reads.size() > 1) calls.emplace_back("IMSPListABEntries 256: [|*|0] 11 1");
  for (const std::string& key : GetParam().reads) {
    calls.push_back("IMSPReadAB 512:" + key + " [|*|0] 512 1");
  }
  EXPECT_EQ(TakeCalls(), calls);
  EXPECT_EQ(Panel(stage_.book), GetParam().reloaded);
}

INSTANTIATE_TEST_SUITE_P(Items, EachChange, testing::ValuesIn(ItemChanges()), CaseName<Change>);
INSTANTIATE_TEST_SUITE_P(Keys, EachChange, testing::ValuesIn(KeyChanges()), CaseName<Change>);

TEST_F(PlainAndFast, RenamingAKeyShowsInMemoryAtOnceOrAfterTheNextLoad) {
  Carry("Post");
  EXPECT_EQ(RenameSoftKey(stage_.book, "Send", stage_.carrier.get()), 0);
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPModifyEntry 256:TOPAB Send Post"));
  EXPECT_THAT(Panel(stage_.book), ElementsAre("Scan Desk Mail", "Send Fax"));
  ASSERT_EQ(LoadTopLevelAbook(stage_.book, 1), 0);
  EXPECT_THAT(Panel(stage_.book), ElementsAre("Lost Item", "Post Fax", "Scan Desk Lost Mail"));

  TakeCalls();
  Carry("Print");
  EXPECT_EQ(FastKeyRename(stage_.book, "Post", stage_.carrier.get()), 1);
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPModifyEntry 256:TOPAB Post Print"));
  EXPECT_THAT(Panel(stage_.book), ElementsAre("Lost Item", "Print Fax", "Scan Desk Lost Mail"));
}

TEST_F(PlainAndFast, FastKeyModifyTakesOverTheItemsOfAnotherKey) {
  Carry("Send");
  ASSERT_EQ(AddMenuItem(stage_.carrier.get(), &stage_.item, 1), 0);
  EXPECT_EQ(FastKeyModify(stage_.book, stage_.carrier.get()), 1);
  EXPECT_THAT(Panel(stage_.book), ElementsAre("Scan Desk Mail", "Send Fax Send/new"));
  EXPECT_EQ(FastKeyModify(stage_.book, stage_.scan), 1);
  EXPECT_THAT(Panel(stage_.book), ElementsAre("Scan Desk Mail", "Send Fax Send/new"));
}

TEST_F(PlainAndFast, FastKeyRemoveTakesTheHandleOfTheKeyInMemory) {
  EXPECT_EQ(FastKeyRemove(stage_.book, stage_.scan), 1);
  EXPECT_THAT(Panel(stage_.book), ElementsAre("Send Fax"));
}

TEST_F(PlainAndFast, AKeyReadWithoutItemsServesForItsNameAndItsCountOnTheServer) {
  ASSERT_EQ(LoadTopLevelAbook(stage_.book, 0), 0);
  CSoftKey* key = GetKeyAt(stage_.book, FindSoftKeyIndex(stage_.book, "Scan"));
  EXPECT_NE(IsSoftKeyEmpty(key), 0);
  std::uint32_t count = 0;
  EXPECT_EQ(GetDBItemCount(key, &count), 0);
  EXPECT_EQ(count, 3U);
  TakeCalls();
  CMenuItem item;
  EXPECT_EQ(AddMenuItem(key, &item, 1), -1);
  EXPECT_EQ(DeleteMenuItem(key, "Desk", 0), -1);
  EXPECT_EQ(FastItemAdd(key, &item), -1);
  EXPECT_EQ(FastItemModify(key, &item), 0);
  EXPECT_THAT(TakeCalls(), IsEmpty());
}

}  // namespace
}  // namespace quillkit
