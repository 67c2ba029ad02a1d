#include "platform/user_settings.h"

#include <windows.h>

#include <cstring>

namespace quillkit {
namespace {

HKEY KeyOf(std::intptr_t handle) {
  return reinterpret_cast<HKEY>(handle);
}

SettingsStatus Write(std::intptr_t key, const char* name, DWORD type, const void* bytes,
                     std::size_t size) {
  return RegSetValueExA(KeyOf(key), name, 0, type, static_cast<const BYTE*>(bytes),
                        static_cast<DWORD>(size));
}

}  // namespace

SettingsKey::SettingsKey(const char* path, SettingsAccess access) {
  HKEY key = nullptr;
  if (access == SettingsAccess::kRead) {
    openStatus = RegOpenKeyExA(HKEY_CURRENT_USER, path, 0, KEY_READ, &key);
  } else {
    openStatus = RegCreateKeyExA(HKEY_CURRENT_USER, path, 0, nullptr, REG_OPTION_NON_VOLATILE,
                                 KEY_WRITE, nullptr, &key, nullptr);
  }
  handle = reinterpret_cast<std::intptr_t>(key);
}

SettingsKey::~SettingsKey() {
  if (openStatus == kSettingsDone) RegCloseKey(KeyOf(handle));
}

SettingsStatus SettingsKey::SubkeyName(std::uint32_t index, char* name,
                                       std::uint32_t* length) const {
  DWORD characters = *length;
  const LSTATUS status =
      RegEnumKeyExA(KeyOf(handle), index, name, &characters, nullptr, nullptr, nullptr, nullptr);
  *length = characters;
  return status;
}

SettingsStatus SettingsKey::Read(const char* name, void* bytes, std::uint32_t* size) const {
  DWORD room = *size;
  const LSTATUS status =
      RegQueryValueExA(KeyOf(handle), name, nullptr, nullptr, static_cast<BYTE*>(bytes), &room);
  *size = room;
  return status;
}

// The system stores the NUL of a text if one follows its bytes, but not for an empty text.
SettingsStatus SettingsKey::WriteText(const char* name, const char* text) {
  return Write(handle, name, REG_SZ, text, std::strlen(text));
}

SettingsStatus SettingsKey::WriteNumber(const char* name, std::uint32_t number) {
  return Write(handle, name, REG_DWORD, &number, sizeof number);
}

SettingsStatus DeleteSettingsKey(const char* path) {
  return RegDeleteKeyA(HKEY_CURRENT_USER, path);
}

}  // namespace quillkit
