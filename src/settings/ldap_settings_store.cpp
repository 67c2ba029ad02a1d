#include "settings/ldap_settings_store.h"

#include <array>

#include "platform/message_box.h"

namespace quillkit {
namespace {

constexpr std::size_t kLongestPath = 260;   // characters
constexpr std::size_t kLongestValue = 513;  // bytes, including the NUL of a text

// The index of the profile that EnumLdapProfiles returns next.
std::uint32_t nextProfile = 0;

std::string KeyPath(const char* profile) {
  std::string path = LoadResourceText(kSettingsKeyText) + "\\LDAP";
  if (profile != nullptr) path.append("\\").append(profile);
  return path;
}

// Reports a failed change. Returns 0.
int Failed(SettingsStatus status, const char* label) {
  ReportRegistryError(status, kSettingsFailedText, label);
  return 0;
}

}  // namespace

SettingsStatus EnumLdapProfiles(char* name, std::uint32_t* length) {
  const SettingsKey key(KeyPath(nullptr).c_str(), SettingsAccess::kRead);
  if (key.OpenStatus() != kSettingsDone) return key.OpenStatus();
  const SettingsStatus status = key.SubkeyName(nextProfile, name, length);
  if (status == kSettingsDone || status == kMoreSettingData) ++nextProfile;
  if (status == kNoMoreSettings) nextProfile = 0;
  return status;
}

std::string GetLdapString(const char* profile, const char* value) {
  const SettingsKey key(KeyPath(profile).c_str(), SettingsAccess::kRead);
  if (key.OpenStatus() != kSettingsDone) return {};
  std::array<char, kLongestValue> text{};
  std::uint32_t size = kLongestValue;
  if (key.Read(value, text.data(), &size) != kSettingsDone) return {};
  const std::string_view stored(text.data(), size);
  const std::size_t end = stored.find('\0');
  if (end == stored.npos && size == kLongestValue) return {};
  return std::string(stored.substr(0, end));
}

int SetLdapString(const char* profile, const char* value, const char* text) {
  const std::string path = KeyPath(profile);
  if (path.size() > kLongestPath) return Failed(kSettingNameTooLong, "String too long: ");
  SettingsKey key(path.c_str(), SettingsAccess::kWrite);
  if (key.OpenStatus() != kSettingsDone) return Failed(key.OpenStatus(), "RegOpenKeyEx returned: ");
  const SettingsStatus status = key.WriteText(value, text != nullptr ? text : "");
  return status == kSettingsDone ? 1 : Failed(status, "RegSetValueEx returned: ");
}

std::uint32_t GetLdapDword(const char* profile, const char* value, std::uint32_t fallback) {
  const SettingsKey key(KeyPath(profile).c_str(), SettingsAccess::kRead);
  if (key.OpenStatus() != kSettingsDone) return 0;
  std::uint32_t number = 0;
  std::uint32_t size = sizeof number;
  return key.Read(value, &number, &size) == kSettingsDone ? number : fallback;
}

void SetLdapDword(const char* profile, const char* value, std::uint32_t number) {
  SettingsKey key(KeyPath(profile).c_str(), SettingsAccess::kWrite);
  if (key.OpenStatus() != kSettingsDone) {
    Failed(key.OpenStatus(), "RegCreateKeyEx returned: ");
    return;
  }
  const SettingsStatus status = key.WriteNumber(value, number);
  if (status != kSettingsDone) Failed(status, "RegSetValueEx returned: ");
}

int DeleteLdapProfile(const char* profile) {
  const SettingsStatus status =
      profile != nullptr ? DeleteSettingsKey(KeyPath(profile).c_str()) : kNoSuchSetting;
  return status == kSettingsDone ? 1 : Failed(status, "RegDeleteKey returned: ");
}

int ReportRegistryError(SettingsStatus /*status*/, unsigned resource, const char* /*label*/) {
  return ShowResourceMessage(resource);
}

}  // namespace quillkit
