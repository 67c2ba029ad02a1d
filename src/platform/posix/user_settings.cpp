#include "platform/user_settings.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/posix/descriptor.h"
#include "platform/posix/folder_names.h"
#include "platform/posix/setting_names.h"
#include "platform/posix/whole_file.h"

namespace quillkit {
namespace {

// A key is a folder, not a link to a folder.
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

// Creates a folder and its missing parents. REQUIRES: an absolute path.
bool MakeFolder(const std::string& path) {
  if (mkdir(path.c_str(), kPrivateFolder) == 0 || errno == EEXIST) return true;
  const std::size_t parent = path.rfind('/');
  if (errno != ENOENT || parent == 0 || parent == std::string::npos) return false;
  return MakeFolder(path.substr(0, parent)) &&
         (mkdir(path.c_str(), kPrivateFolder) == 0 || errno == EEXIST);
}

// While the object exists, no other thread or process creates or deletes keys, so that no key gets
// a subkey between the check and its deletion. Without effect on a file system without locks.
class KeysLock {
 public:
  KeysLock() : tree(open(KeyFolder({}).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    while (flock(tree.Number(), LOCK_EX) != 0 && errno == EINTR) {
    }
  }

  KeysLock(const KeysLock&) = delete;
  KeysLock& operator=(const KeysLock&) = delete;
  // Closing the file is not enough: a process that was forked meanwhile also has it open.
  ~KeysLock() {
    if (tree.IsOpen()) flock(tree.Number(), LOCK_UN);
  }

 private:
  const Descriptor tree;
};

int OpenKey(const std::string& folder, SettingsAccess access) {
  const int key = open(folder.c_str(), kFolder);
  if (key >= 0 || errno != ENOENT || access == SettingsAccess::kRead) return key;
  if (!MakeFolder(KeyFolder({}))) return -1;
  const KeysLock lock;
  return MakeFolder(folder) ? open(folder.c_str(), kFolder) : -1;
}

bool IsFolder(int key, const char* name) {
  struct stat found {};
  return fstatat(key, name, &found, AT_SYMLINK_NOFOLLOW) == 0 && S_ISDIR(found.st_mode);
}

// The name of a key folder while its values are deleted. It is not the name of any key.
constexpr const char* kDeletedKey = ".quillkit-deleted";

// Deletes the remains of a deleted key in this folder. If the process is killed meanwhile, or a
// value is written meanwhile, the next change deletes them.
void RemoveDeletedKey(int folder) {
  const Descriptor key(openat(folder, kDeletedKey, kFolder));
  if (!key.IsOpen()) return;
  for (const std::string& each : NamesIn(key.Number())) {
    if (IsValueFileName(each)) unlinkat(key.Number(), each.c_str(), 0);
  }
  unlinkat(folder, kDeletedKey, AT_REMOVEDIR);
}

// Returns status 0 if the key contains only values and all of them can be deleted.
SettingsStatus StatusOfDeletion(int key) {
  if (faccessat(key, ".", W_OK | X_OK, AT_EACCESS) != 0) return StatusOf(errno);
  const std::vector<std::string> names = NamesIn(key);
  const auto isValue = [&](const std::string& each) {
    return IsValueFileName(each) && !IsFolder(key, each.c_str());
  };
  return std::all_of(names.begin(), names.end(), isValue) ? kSettingsDone : kSettingsDenied;
}

SettingsStatus Write(std::intptr_t key, const char* name, const void* bytes, std::size_t size) {
  return StatusOf(ReplaceFile(static_cast<int>(key), ValueFileName(name).c_str(), bytes, size));
}

}  // namespace

SettingsKey::SettingsKey(const char* path, SettingsAccess access)
    : handle(OpenKey(KeyFolder(path), access)) {
  if (handle < 0) openStatus = StatusOf(errno);
  if (handle < 0 || access == SettingsAccess::kRead) return;
  const int key = static_cast<int>(handle);
  RemoveDeletedKey(key);
  const Descriptor parent(openat(key, "..", kFolder));
  RemoveDeletedKey(parent.Number());
}

SettingsKey::~SettingsKey() {
  const Descriptor closed(static_cast<int>(handle));
}

SettingsStatus SettingsKey::SubkeyName(std::uint32_t index, char* name,
                                       std::uint32_t* length) const {
  const int key = static_cast<int>(handle);
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
  return StatusOf(ReadFile(static_cast<int>(handle), ValueFileName(name).c_str(), bytes, size));
}

SettingsStatus SettingsKey::WriteText(const char* name, const char* text) {
  const std::size_t length = std::strlen(text);
  return Write(handle, name, text, length != 0 ? length + 1 : 0);
}

SettingsStatus SettingsKey::WriteNumber(const char* name, std::uint32_t number) {
  return Write(handle, name, &number, sizeof number);
}

SettingsStatus DeleteSettingsKey(const char* path) {
  const std::string folder = KeyFolder(path);
  const std::size_t split = folder.rfind('/') + 1;
  const char* const name = folder.c_str() + split;
  const Descriptor parent(
      open(folder.substr(0, split).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!parent.IsOpen()) return StatusOf(errno);
  const KeysLock lock;
  RemoveDeletedKey(parent.Number());
  const Descriptor key(openat(parent.Number(), name, kFolder));
  if (!key.IsOpen()) return StatusOf(errno);
  RemoveDeletedKey(key.Number());
  const SettingsStatus status = StatusOfDeletion(key.Number());
  if (status != kSettingsDone) return status;
  // First renames the folder, which is atomic; then deletes its contents.
  if (renameat(parent.Number(), name, parent.Number(), kDeletedKey) != 0) return StatusOf(errno);
  RemoveDeletedKey(parent.Number());
  return kSettingsDone;
}

}  // namespace quillkit
