// One menu item.

#include "capi/call_frame.h"

using namespace quillkit;

int32_t quill_create_menu_item(quill_handle* item) {
  return InFrame(
      [](const HandleResult& result) {
        CMenuItem* made = nullptr;
        CreateMenuItem(&made);
        return result.TakeForApplication(made, DestroyMenuItem);
      },
      HandleResult(item));
}

int32_t quill_destroy_menu_item(quill_handle item) {
  return InFrame(kDestroy<DestroyMenuItem>, ObjectArgument<CMenuItem, Need::kOwnership>(item));
}

int32_t quill_get_item_name(quill_handle item, char* buffer, uint32_t* size) {
  return InFrame(kGive<GetItemName>, TextResult(buffer, size), Item(item));
}

int32_t quill_ip_address(quill_handle item, char* buffer, uint32_t* size) {
  return InFrame(kGive<IPAddress>, TextResult(buffer, size), Item(item));
}

int32_t quill_path(quill_handle item, char* buffer, uint32_t* size) {
  return InFrame(kGive<Path>, TextResult(buffer, size), Item(item));
}

int32_t quill_app_tag(quill_handle item, char* buffer, uint32_t* size) {
  return InFrame(kGive<AppTag>, TextResult(buffer, size), Item(item));
}

int32_t quill_file_format(quill_handle item, uint32_t* value) {
  return InFrame(kGive<FileFormat>, NumberResult(value), Item(item));
}

int32_t quill_settings(quill_handle item, uint32_t* value) {
  return InFrame(kGive<Settings>, NumberResult(value), Item(item));
}

int32_t quill_set_name(quill_handle item, const char* text) {
  return InFrame(SetName, Item(item), Text(text));
}

int32_t quill_set_ip_address(quill_handle item, const char* text) {
  return InFrame(SetIPAddress, Item(item), Text(text));
}

int32_t quill_set_path(quill_handle item, const char* text) {
  return InFrame(SetPath, Item(item), Text(text));
}

int32_t quill_set_app_tag(quill_handle item, const char* text) {
  return InFrame(SetAppTag, Item(item), Text(text));
}

int32_t quill_set_file_format(quill_handle item, uint32_t value) {
  return InFrame(SetFileFormat, Item(item), value);
}

int32_t quill_set_settings(quill_handle item, uint32_t value) {
  return InFrame(SetSettings, Item(item), value);
}
