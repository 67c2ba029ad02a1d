// The calling user's settings: a tree of keys, each with named values and keys below it. What other
// programs of the user write is seen at once.
//
// On Windows it is the registry under HKEY_CURRENT_USER. On POSIX it is the folder "quillkit" in
// the user's configuration folder ($XDG_CONFIG_HOME, else $HOME/.config): a key is a folder, a
// value a file that is written whole and renamed into place, so that no reader, no second writer
// and no crash ever makes half a value. A crash may leave a draft of a value behind
// (platform/draft.h), which the next change of the key removes, or a folder ".quillkit-deleted"
// with values of a deleted key. The next change of that key, of one beside it or of the one above
// it removes the folder.
//
// A path is key names joined by backslashes; doubled backslashes and one at the end count for
// nothing. Every other byte may stand in a name, and ".." is a name like any other: nothing reaches
// out of the tree. On Windows case plays no part and a key's name has at most 255 characters; on
// POSIX names are compared byte for byte, and are limited by the file system's 255 bytes, of which
// control characters, "%", "/", "\" and a first "." or "=" take three each.

#ifndef QUILLKIT_PLATFORM_USER_SETTINGS_H_
#define QUILLKIT_PLATFORM_USER_SETTINGS_H_

#include <cstdint>

namespace quillkit {

// 0, or an error number of Windows, on POSIX too.
using SettingsStatus = std::int32_t;

inline constexpr SettingsStatus kSettingsDone = 0;
inline constexpr SettingsStatus kNoSuchSetting = 2;
inline constexpr SettingsStatus kSettingsDenied = 5;
inline constexpr SettingsStatus kSettingNameTooLong = 206;
inline constexpr SettingsStatus kMoreSettingData = 234;  // the caller's buffer is too small
inline constexpr SettingsStatus kNoMoreSettings = 259;

enum class SettingsAccess {
  kRead,   // a key that is there
  kWrite,  // a key that is there or is created now, with all keys on its path
};

// An open key.
class SettingsKey {
 public:
  SettingsKey(const char* path, SettingsAccess access);
  SettingsKey(const SettingsKey&) = delete;
  SettingsKey& operator=(const SettingsKey&) = delete;
  ~SettingsKey();

  // How the opening went. Nothing else may be asked of a key that this is not 0 for.
  SettingsStatus OpenStatus() const { return openStatus; }

  // Copies the name of the subkey at `index`, in the order of names, and its NUL into `name`, which
  // has room for `*length` bytes; `*length` becomes the name's length without its NUL. 234 for too
  // small a buffer, whose content and length mean nothing then; 259 behind the last subkey.
  SettingsStatus SubkeyName(std::uint32_t index, char* name, std::uint32_t* length) const;

  // Copies a value of either type into `bytes`, which has room for `*size`; `*size` becomes the
  // bytes that it has. A text has its NUL, unless it is empty: then it has no bytes. 2 for a value
  // that is not there, 234 for too small a buffer.
  SettingsStatus Read(const char* name, void* bytes, std::uint32_t* size) const;

  // Store a value in the place of one that is there, of any type. An empty name is a name.
  SettingsStatus WriteText(const char* name, const char* text);
  SettingsStatus WriteNumber(const char* name, std::uint32_t number);

 private:
  std::intptr_t handle = -1;
  SettingsStatus openStatus = kSettingsDone;
};

// Deletes a key and its values. 2 where there is no such key, 5 for one that has subkeys.
SettingsStatus DeleteSettingsKey(const char* path);

}  // namespace quillkit

#endif  // QUILLKIT_PLATFORM_USER_SETTINGS_H_
