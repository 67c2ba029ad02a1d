#include "platform/user_settings.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/posix/descriptor.h"
#include "platform/posix/setting_names.h"
#include "platform/posix/whole_file.h"

namespace quillkit {
namespace {

// A key is a folder itself, not a link to one somewhere else.
constexpr int kFolder = O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NOFOLLOW;
constexpr mode_t kPrivateFolder = 0700;

SettingsStatus StatusOf(int error) {
  switch (error) {
    case 0:
      return kSettingsDone;
    case EOVERFLOW:
      return kMoreSettingData;
    case ENOENT:
      return kNoSuchSetting;
    case ENOTDIR:
      return 3;  // path not found
    case EMFILE:
    case ENFILE:
      return 4;  // too many open files
    case EACCES:
    case EPERM:
    case EROFS:
    case ELOOP:
    case EEXIST:
    case ENOTEMPTY:
      return kSettingsDenied;
    case ENOSPC:
    case EDQUOT:
      return 112;  // disk full
    case ENAMETOOLONG:
      return kSettingNameTooLong;
    default:
      return 31;  // general failure
  }
}

// Makes a folder and those on the way to it that are not there. REQUIRES: an absolute path.
bool MakeFolder(const std::string& path) {
  if (mkdir(path.c_str(), kPrivateFolder) == 0 || errno == EEXIST) return true;
  const std::size_t parent = path.rfind('/');
  if (errno != ENOENT || parent == 0 || parent == std::string::npos) return false;
  return MakeFolder(path.substr(0, parent)) &&
         (mkdir(path.c_str(), kPrivateFolder) == 0 || errno == EEXIST);
}

int OpenKey(const std::string& folder, SettingsAccess access) {
  const int key = open(folder.c_str(), kFolder);
  if (key >= 0 || errno != ENOENT || access == SettingsAccess::kRead) return key;
  return MakeFolder(folder) ? open(folder.c_str(), kFolder) : -1;
}

bool IsFolder(int key, const char* name) {
  struct stat found {};
  return fstatat(key, name, &found, AT_SYMLINK_NOFOLLOW) == 0 && S_ISDIR(found.st_mode);
}

// What stands in a key's folder.
std::vector<std::string> NamesIn(int key) {
  struct Close {
    void operator()(DIR* open) const { closedir(open); }
  };
  std::vector<std::string> names;
  const int again = openat(key, ".", kFolder);
  const std::unique_ptr<DIR, Close> folder(fdopendir(again));
  if (folder == nullptr) {
    const Descriptor closed(again);
    return names;
  }
  while (const dirent* entry = readdir(folder.get())) {
    const std::string_view name = entry->d_name;
    if (name != "." && name != "..") names.emplace_back(name);
  }
  return names;
}

SettingsStatus Write(std::intptr_t key, const char* name, const void* bytes, std::size_t size) {
  return StatusOf(ReplaceFile(static_cast<int>(key), ValueFileName(name).c_str(), bytes, size));
}

}  // namespace

SettingsKey::SettingsKey(const char* path, SettingsAccess access)
    : handle_(OpenKey(KeyFolder(path), access)) {
  if (handle_ < 0) openStatus_ = StatusOf(errno);
}

SettingsKey::~SettingsKey() {
  const Descriptor closed(static_cast<int>(handle_));
}

SettingsStatus SettingsKey::SubkeyName(std::uint32_t index, char* name,
                                       std::uint32_t* length) const {
  const int key = static_cast<int>(handle_);
  std::vector<std::string> keys;
  for (const std::string& each : NamesIn(key)) {
    std::optional<std::string> subkey = KeyOfFolderName(each);
    if (subkey && IsFolder(key, each.c_str())) keys.push_back(std::move(*subkey));
  }
  if (index >= keys.size()) return kNoMoreSettings;
  const auto chosen = keys.begin() + static_cast<std::ptrdiff_t>(index);
  std::nth_element(keys.begin(), chosen, keys.end());
  if (chosen->size() >= *length) return kMoreSettingData;
  std::memcpy(name, chosen->c_str(), chosen->size() + 1);
  *length = static_cast<std::uint32_t>(chosen->size());
  return kSettingsDone;
}

SettingsStatus SettingsKey::Read(const char* name, void* bytes, std::uint32_t* size) const {
  return StatusOf(ReadFile(static_cast<int>(handle_), ValueFileName(name).c_str(), bytes, size));
}

SettingsStatus SettingsKey::WriteText(const char* name, const char* text) {
  const std::size_t length = std::strlen(text);
  return Write(handle_, name, text, length != 0 ? length + 1 : 0);
}

SettingsStatus SettingsKey::WriteNumber(const char* name, std::uint32_t number) {
  return Write(handle_, name, &number, sizeof number);
}

SettingsStatus DeleteSettingsKey(const char* path) {
  const std::string folder = KeyFolder(path);
  const Descriptor key(OpenKey(folder, SettingsAccess::kRead));
  if (!key.IsOpen()) return StatusOf(errno);
  const std::vector<std::string> files = NamesIn(key.Number());
  const auto isValue = [&](const std::string& each) {
    return IsValueFileName(each) && !IsFolder(key.Number(), each.c_str());
  };
  if (!std::all_of(files.begin(), files.end(), isValue)) return kSettingsDenied;
  // First the name goes, at once or not at all; then what it stood for.
  const std::string gone = DraftBeside(folder);
  if (rename(folder.c_str(), gone.c_str()) != 0) return StatusOf(errno);
  for (const std::string& each : files) unlinkat(key.Number(), each.c_str(), 0);
  rmdir(gone.c_str());
  return kSettingsDone;
}

}  // namespace quillkit
