// One menu item, without server calls.

#include <new>

#include "bridge/menu_item.h"
#include "toolkit/call_frame.h"
#include "toolkit/quillkit.h"

namespace quillkit {

std::int32_t CreateMenuItem(CMenuItem** item) {
  return InFrame([&] {
    *item = new (std::nothrow) CMenuItem;
    return *item != nullptr ? 1 : 0;
  });
}

void DestroyMenuItem(CMenuItem* item) {
  InFrame([&] { delete item; });
}

const char* GetItemName(CMenuItem* item) {
  return InFrame([&] { return item->name.c_str(); });
}

const char* IPAddress(CMenuItem* item) {
  return InFrame([&] { return item->ipAddress.c_str(); });
}

const char* Path(CMenuItem* item) {
  return InFrame([&] { return item->path.c_str(); });
}

const char* AppTag(CMenuItem* item) {
  return InFrame([&] { return item->appTag.c_str(); });
}

std::uint32_t FileFormat(CMenuItem* item) {
  return InFrame([&] { return item->fileFormat; });
}

std::uint32_t Settings(CMenuItem* item) {
  return InFrame([&] { return item->settings; });
}

std::int32_t SetName(CMenuItem* item, const std::string& text) {
  return InFrame([&](const std::string& copy) { return item->SetName(copy); }, text);
}

std::int32_t SetIPAddress(CMenuItem* item, const std::string& text) {
  return InFrame([&](const std::string& copy) { return item->SetIPAddress(copy); }, text);
}

std::int32_t SetPath(CMenuItem* item, const std::string& text) {
  return InFrame([&](const std::string& copy) { return item->SetPath(copy); }, text);
}

std::int32_t SetAppTag(CMenuItem* item, const std::string& text) {
  return InFrame([&](const std::string& copy) { return item->SetAppTag(copy); }, text);
}

std::int32_t SetFileFormat(CMenuItem* item, std::uint32_t value) {
  return InFrame([&] { return item->SetFileFormat(value); });
}

std::int32_t SetSettings(CMenuItem* item, std::uint32_t value) {
  return InFrame([&] { return item->SetSettings(value); });
}

}  // namespace quillkit
