#include "tests/toolkit/server_operation.h"

#include "tests/support/appliance_fixture.h"

namespace quillkit {
namespace {

std::int64_t Handle(const void* handle) {
  return handle != nullptr ? 1 : 0;
}

}  // namespace

std::vector<Operation> ServerOperations() {
  using enum Reaction;
  const Step create{"IMSPCreateEntry", kStops};
  const Step modify{"IMSPModifyEntry", kStops};
  const Step remove{"IMSPDeleteEntry", kStops};
  const Step removeKey{"IMSPDeleteAB", kStops};
  const Step list{"IMSPListABEntries", kEmpties, kAllKeys};
  const auto keyRead = [](int key) { return Step{"IMSPReadAB", kPasses, key}; };
  const Step itemRead{"IMSPReadAB", kEnds, 0};
  const Step control{"IMSPIOCtl", kStops};
  return {
      {"LogToQuillbox",
       Style::kHandle,
       {{"IMSPLogout", kPasses},
        {"IMSPLogin", kLogsOut},
        {"IMSPIOCtl", kLogsOut},
        {"IMSPReadEntryProperties", kLogsOut},
        {"IMSPListABEntries", kEnds, kAllKeys},
        keyRead(0),
        keyRead(1)},
       1,
       [](Stage& on) {
         Logout();
         on.box = LogToQuillbox(kHost, kAdministrator, kPassword, "", 1);
         return Handle(on.box);
       }},
      {"Logout",
       Style::kNothing,
       {{"IMSPLogout", kPasses}},
       0,
       [](Stage&) {
         Logout();
         return 0;
       }},
      {"LoadTopLevelAbook with items",
       Style::kStatus,
       {list, keyRead(0), keyRead(1)},
       0,
       [](Stage& on) { return LoadTopLevelAbook(on.book, 1); }},
      {"LoadTopLevelAbook",
       Style::kStatus,
       {list},
       0,
       [](Stage& on) { return LoadTopLevelAbook(on.book, 0); }},
      {"AddKey",
       Style::kStatus,
       {create, list, keyRead(0), keyRead(1), keyRead(2)},
       0,
       [](Stage& on) { return AddKey(on.book, "Copy", 1); }},
      {"DeleteKey",
       Style::kStatus,
       {removeKey, list, keyRead(0)},
       0,
       [](Stage& on) { return DeleteKey(on.book, "Send", 1); }},
      {"ModifyKey",
       Style::kStatus,
       {modify, list, keyRead(0), keyRead(1)},
       0,
       [](Stage& on) { return ModifyKey(on.book, on.key, 1); }},
      {"RenameSoftKey",
       Style::kStatus,
       {modify},
       0,
       [](Stage& on) { return RenameSoftKey(on.book, "Scan", on.newKey); }},
      {"FastKeyAdd",
       Style::kCount,
       {create},
       3,
       [](Stage& on) { return FastKeyAdd(on.book, on.newKey); }},
      {"FastKeyRemove",
       Style::kCount,
       {removeKey},
       1,
       [](Stage& on) { return FastKeyRemove(on.book, on.key); }},
      {"FastKeyModify",
       Style::kFlag,
       {modify},
       1,
       [](Stage& on) { return FastKeyModify(on.book, on.key); }},
      {"FastKeyRename",
       Style::kFlag,
       {modify},
       1,
       [](Stage& on) { return FastKeyRename(on.book, "Scan", on.newKey); }},
      {"LoadItems",
       Style::kHandle,
       {{"IMSPReadAB", kEnds}},
       1,
       [](Stage& on) { return Handle(LoadItems(on.book, "Scan")); }},
      {"GetDBItemCount",
       Style::kStatus,
       {{"IMSPSizeofAB", kStops}},
       0,
       [](Stage& on) {
         std::uint32_t count = 0;
         return GetDBItemCount(on.key, &count);
       }},
      {"AddMenuItem",
       Style::kStatus,
       {create, itemRead},
       0,
       [](Stage& on) { return AddMenuItem(on.key, &on.newItem, 1); }},
      {"ModifyMenuItem",
       Style::kStatus,
       {modify, itemRead},
       0,
       [](Stage& on) { return ModifyMenuItem(on.key, &on.item, 1); }},
      {"RenameMenuItem",
       Style::kStatus,
       {modify, itemRead},
       0,
       [](Stage& on) { return RenameMenuItem(on.key, "Desk", &on.newItem, 1); }},
      {"DeleteMenuItem",
       Style::kStatus,
       {remove, itemRead},
       0,
       [](Stage& on) { return DeleteMenuItem(on.key, "Desk", 1); }},
      {"FastItemAdd",
       Style::kCount,
       {create},
       3,
       [](Stage& on) { return FastItemAdd(on.key, &on.newItem); }},
      {"FastItemRemove",
       Style::kCount,
       {remove},
       1,
       [](Stage& on) { return FastItemRemove(on.key, &on.item); }},
      {"FastItemModify",
       Style::kFlag,
       {modify},
       1,
       [](Stage& on) { return FastItemModify(on.key, &on.item); }},
      {"FastItemRename",
       Style::kFlag,
       {modify},
       1,
       [](Stage& on) { return FastItemRename(on.key, "Desk", &on.newItem); }},
      {"ImportAddressBook",
       Style::kStatus,
       {control, control, {"IMSPBatchConfiguration", kStops}, control, control},
       0,
       [](Stage& on) {
         ImportOptions options{};
         options.format = ImportFormatScript;
         return ImportAddressBook(on.box, on.script, &options);
       }},
  };
}

}  // namespace quillkit
