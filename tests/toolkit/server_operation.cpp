#include "tests/toolkit/server_operation.h"

#include "simulator/simulator.h"

namespace quillkit {
namespace {

std::uint32_t count;

#define RUN(expression) []([[maybe_unused]] Stage& on) -> std::int64_t { return expression; }

template <class... Text>
std::vector<std::string> Calls(Text... texts) {
  return {texts...};
}

}  // namespace

std::vector<Operation> ServerOperations() {
  using enum Style;
  const std::string list = "4ListABEntries 256: [|*|0] 11 1";
  const std::string copy = "~ReadAB 512:Copy [|*|0] 512 1";
  const std::string scan = "~ReadAB 512:Scan [|*|0] 512 1";
  const std::string send = "~ReadAB 512:Send [|*|0] 512 1";
  const std::string createKey = "!CreateEntry 256:TOPAB Copy";
  const std::string modifyKey = "!ModifyEntry 256:TOPAB Scan Scan";
  const std::string renameKey = "!ModifyEntry 256:TOPAB Scan Copy";
  const std::string deleteKey = "!DeleteAB 512:Scan";
  const std::string createItem = "!CreateEntry 512:Scan Fresh";
  const std::string modifyItem = "!ModifyEntry 512:Scan Desk Desk";
  const std::string renameItem = "!ModifyEntry 512:Scan Desk Fresh";
  const std::string deleteItem = "!DeleteEntry 512:Scan Desk";
  return {
      {"LogToQuillbox", kFlag, 1,
       Calls("~Logout", "xLogin 127.0.0.1 ADMINISTRATOR ***", "xIOCtl 6 0",
             "xReadEntryProperties 4:USERSAB ADMINISTRATOR", "-" + list.substr(1), scan, send),
       RUN((Logout(), on.box = LogToQuillbox(kHost, kAdministrator, kPassword, "", 1)) != nullptr)},
      {"Logout", kNothing, 0, Calls("~Logout"), RUN((Logout(), 0))},
      {"LoadWithItems", kStatus, 0, Calls(list, scan, send), RUN(LoadTopLevelAbook(on.book, 1))},
      {"LoadNames", kStatus, 0, Calls(list), RUN(LoadTopLevelAbook(on.book, 0))},
      {"AddKey", kStatus, 0, Calls(createKey, list, copy, scan, send),
       RUN(AddKey(on.book, "Copy", 1))},
      {"AddKeyAlone", kStatus, 0, Calls(createKey), RUN(AddKey(on.book, "Copy", 0))},
      {"DeleteKey", kStatus, 0, Calls(deleteKey, list, send), RUN(DeleteKey(on.book, "Scan", 1))},
      {"DeleteKeyAlone", kStatus, 0, Calls(deleteKey), RUN(DeleteKey(on.book, "Scan", 0))},
      {"ModifyKey", kStatus, 0, Calls(modifyKey, list, scan, send),
       RUN(ModifyKey(on.book, on.key, 1))},
      {"ModifyKeyAlone", kStatus, 0, Calls(modifyKey), RUN(ModifyKey(on.book, on.key, 0))},
      {"RenameSoftKey", kStatus, 0, Calls(renameKey),
       RUN(RenameSoftKey(on.book, "Scan", on.newKey))},
      {"FastKeyAdd", kCount, 3, Calls(createKey), RUN(FastKeyAdd(on.book, on.newKey))},
      {"FastKeyRemove", kCount, 1, Calls(deleteKey), RUN(FastKeyRemove(on.book, on.key))},
      {"FastKeyModify", kFlag, 1, Calls(modifyKey), RUN(FastKeyModify(on.book, on.key))},
      {"FastKeyRename", kFlag, 1, Calls(renameKey), RUN(FastKeyRename(on.book, "Scan", on.newKey))},
      {"GetDBItemCount", kStatus, 0, Calls("!SizeofAB 512:Scan -"),
       RUN(GetDBItemCount(on.key, &count))},
      {"AddMenuItem", kStatus, 0, Calls(createItem, scan),
       RUN(AddMenuItem(on.key, &on.newItem, 1))},
      {"AddMenuItemAlone", kStatus, 0, Calls(createItem), RUN(AddMenuItem(on.key, &on.newItem, 0))},
      {"ModifyMenuItem", kStatus, 0, Calls(modifyItem, scan),
       RUN(ModifyMenuItem(on.key, &on.item, 1))},
      {"ModifyMenuItemAlone", kStatus, 0, Calls(modifyItem),
       RUN(ModifyMenuItem(on.key, &on.item, 0))},
      {"RenameMenuItem", kStatus, 0, Calls(renameItem, scan),
       RUN(RenameMenuItem(on.key, "Desk", &on.newItem, 1))},
      {"RenameMenuItemAlone", kStatus, 0, Calls(renameItem),
       RUN(RenameMenuItem(on.key, "Desk", &on.newItem, 0))},
      {"DeleteMenuItem", kStatus, 0, Calls(deleteItem, scan),
       RUN(DeleteMenuItem(on.key, "Desk", 1))},
      {"DeleteMenuItemAlone", kStatus, 0, Calls(deleteItem),
       RUN(DeleteMenuItem(on.key, "Desk", 0))},
      {"FastItemAdd", kCount, 3, Calls(createItem), RUN(FastItemAdd(on.key, &on.newItem))},
      {"FastItemRemove", kCount, 1, Calls(deleteItem), RUN(FastItemRemove(on.key, &on.item))},
      {"FastItemModify", kFlag, 1, Calls(modifyItem), RUN(FastItemModify(on.key, &on.item))},
      {"FastItemRename", kFlag, 1, Calls(renameItem),
       RUN(FastItemRename(on.key, "Desk", &on.newItem))},
  };
}

Panel Look(CTopLevelAB* book) {
  Panel panel;
  for (std::int32_t i = 0; book != nullptr && i < GetCount(book); ++i) {
    CSoftKey* key = GetKeyAt(book, i);
    Names& items = panel.emplace_back(GetKeyName(key), Names()).second;
    for (std::int32_t at = 0; at < GetItemCount(key); ++at) {
      items.emplace_back(GetItemName(GetItemAt(key, at)));
    }
  }
  return panel;
}

Stage OperationTest::SetStage() {
  SimulatorReset();
  PutKey("Scan", {"Desk", "Mail"});
  PutKey("Send", {"Fax"});
  Stage stage;
  stage.item.SetName("Desk");
  stage.newItem.SetName("Fresh");
  stage.box = LogIn();
  stage.book = GetTopLevelAbook(stage.box);
  EXPECT_EQ(LoadTopLevelAbook(stage.book, 1), 0);
  stage.key = GetKeyAt(stage.book, 0);
  EXPECT_EQ(CreateSoftKey("Copy", stage.book, &stage.newKey), 1);
  return stage;
}

}  // namespace quillkit
