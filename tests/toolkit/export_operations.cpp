#include "tests/toolkit/export_operations.h"

namespace quillkit {
namespace {

std::uint32_t count;

std::string ReadItems(const std::string& key) {
  return ", ReadAB 512:" + key + " [|*|0] 512 1 (ignored, loses key/" + key + "/)";
}

}  // namespace

Operations ExportOperations() {
  const std::string listing = "ListABEntries 256: [|*|0] 11 1";
  const std::string list = listing + " (loses key/; 4: ends, loses key/)";
  const std::string scan = ReadItems("Scan");
  const std::string send = ReadItems("Send");
  const std::string createKey = "CreateEntry 256:TOPAB Copy";
  const std::string modifyKey = "ModifyEntry 256:TOPAB Scan Scan";
  const std::string renameKey = "ModifyEntry 256:TOPAB Scan Copy";
  const std::string deleteKey = "DeleteAB 512:Scan";
  const std::string createItem = "CreateEntry 512:Scan Fresh";
  const std::string modifyItem = "ModifyEntry 512:Scan Desk Desk";
  const std::string renameItem = "ModifyEntry 512:Scan Desk Fresh";
  const std::string deleteItem = "DeleteEntry 512:Scan Desk";
  return {
      CALL(LoadTopLevelAbook(on.book, 1), kStatus, list + scan + send),
      CALL(LoadTopLevelAbook(on.book, 0), kStatus, list, "loses key/Scan/, loses key/Send/"),
      CALL(AddKey(on.book, "Copy", 1), kStatus,
           createKey + ", " + list + ReadItems("Copy") + scan + send),
      CALL(AddKey(on.book, "Copy", 0), kStatus, createKey, "kept"),
      CALL(DeleteKey(on.book, "Scan", 1), kStatus, deleteKey + ", " + list + send),
      CALL(DeleteKey(on.book, "Scan", 0), kStatus, deleteKey, "kept"),
      CALL(ModifyKey(on.book, on.key, 1), kStatus, modifyKey + ", " + list + scan + send),
      CALL(ModifyKey(on.book, on.key, 0), kStatus, modifyKey, "kept"),
      CALL(RenameSoftKey(on.book, "Scan", on.newKey), kStatus, renameKey, "kept"),
      CALL(FastKeyAdd(on.book, on.newKey), Count(3), createKey),
      CALL(FastKeyRemove(on.book, on.key), Count(1), deleteKey),
      CALL(FastKeyModify(on.book, on.key), kFlag, modifyKey),
      CALL(FastKeyRename(on.book, "Scan", on.newKey), kFlag, renameKey),
      CALL(LoadItems(on.book, "Scan"), kFlag, "ReadAB 512:Scan [|*|0] 512 1 (ignored)"),
      CALL(GetDBItemCount(on.key, &count), kStatus, "SizeofAB 512:Scan -"),
      CALL(AddMenuItem(on.key, &on.newItem, 1), kStatus, createItem + scan),
      CALL(AddMenuItem(on.key, &on.newItem, 0), kStatus, createItem, "kept"),
      CALL(ModifyMenuItem(on.key, &on.item, 1), kStatus, modifyItem + scan),
      CALL(ModifyMenuItem(on.key, &on.item, 0), kStatus, modifyItem, "kept"),
      CALL(RenameMenuItem(on.key, "Desk", &on.newItem, 1), kStatus, renameItem + scan),
      CALL(RenameMenuItem(on.key, "Desk", &on.newItem, 0), kStatus, renameItem, "kept"),
      CALL(DeleteMenuItem(on.key, "Desk", 1), kStatus, deleteItem + scan),
      CALL(DeleteMenuItem(on.key, "Desk", 0), kStatus, deleteItem, "kept"),
      CALL(FastItemAdd(on.key, &on.newItem), Count(3), createItem),
      CALL(FastItemRemove(on.key, &on.item), Count(1), deleteItem),
      CALL(FastItemModify(on.key, &on.item), kFlag, modifyItem),
      CALL(FastItemRename(on.key, "Desk", &on.newItem), kFlag, renameItem),
      CALL(on.box = LogToQuillbox(kHost, kAdministrator, kPassword, "", 1), kFlag,
           "Login 127.0.0.1 ADMINISTRATOR *** (then Logout, loses key/), "
           "IOCtl 6 0 (then Logout, loses key/), "
           "ReadEntryProperties 4:USERSAB ADMINISTRATOR (then Logout, loses key/), " +
               listing + " (ends, loses key/)" + scan + send,
           "", [](Stage&) { Logout(); }),
      CALL(Logout(), kNothing, "Logout (ignored)", "loses key/"),
  };
}

}  // namespace quillkit
