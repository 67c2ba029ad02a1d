// One menu item.

#include "capi/call_frame.h"

using namespace quillkit;
using namespace quillkit::capi;

int32_t quill_create_menu_item(quill_handle* item) {
  return InTurn(
      [](const HandleResult& result) {
        CMenuItem* made = nullptr;
        CreateMenuItem(&made);
        return result.StoreForApplication(made, DestroyMenuItem);
      },
      HandleResult(item));
}

int32_t quill_destroy_menu_item(quill_handle item) {
  return InTurn(kDestroy<DestroyMenuItem>, ObjectArgument<CMenuItem, Need::kOwnership>(item));
}

int32_t quill_get_item_name(quill_handle item, char* buffer, uint32_t* size) {
  return InTurn(kStoreResult<GetItemName>, TextResult(buffer, size), ItemArgument(item));
}

int32_t quill_ip_address(quill_handle item, char* buffer, uint32_t* size) {
  return InTurn(kStoreResult<IPAddress>, TextResult(buffer, size), ItemArgument(item));
}

int32_t quill_path(quill_handle item, char* buffer, uint32_t* size) {
  return InTurn(kStoreResult<Path>, TextResult(buffer, size), ItemArgument(item));
}

int32_t quill_app_tag(quill_handle item, char* buffer, uint32_t* size) {
  return InTurn(kStoreResult<AppTag>, TextResult(buffer, size), ItemArgument(item));
}

int32_t quill_file_format(quill_handle item, uint32_t* value) {
  return InTurn(kStoreResult<FileFormat>, NumberResult(value), ItemArgument(item));
}

int32_t quill_settings(quill_handle item, uint32_t* value) {
  return InTurn(kStoreResult<Settings>, NumberResult(value), ItemArgument(item));
}

int32_t quill_set_name(quill_handle item, const char* text) {
  return InTurn(SetName, ItemArgument(item), TextArgument(text));
}

int32_t quill_set_ip_address(quill_handle item, const char* text) {
  return InTurn(SetIPAddress, ItemArgument(item), TextArgument(text));
}

int32_t quill_set_path(quill_handle item, const char* text) {
  return InTurn(SetPath, ItemArgument(item), TextArgument(text));
}

int32_t quill_set_app_tag(quill_handle item, const char* text) {
  return InTurn(SetAppTag, ItemArgument(item), TextArgument(text));
}

int32_t quill_set_file_format(quill_handle item, uint32_t value) {
  return InTurn(SetFileFormat, ItemArgument(item), value);
}

int32_t quill_set_settings(quill_handle item, uint32_t value) {
  return InTurn(SetSettings, ItemArgument(item), value);
}
