// The settings of the current user: a tree of keys, each with named values and subkeys. Changes by
// other programs of the user are visible immediately.
//
// On Windows, the tree is the registry under HKEY_CURRENT_USER. On POSIX, it is the folder
// "quillkit" in the user's configuration folder ($XDG_CONFIG_HOME, otherwise $HOME/.config). A key
// is a folder. A value is a file, which is written to a draft and renamed, so that a value is
// always complete even with several writers and after a crash. A crash can leave the draft of a
// value (platform/draft.h), which the next change of the key removes, or a folder
// ".quillkit-deleted" with values of a deleted key, which the next change of that key, of a sibling
// or of the parent removes.
//
// A path is key names joined by backslashes. Repeated backslashes and one at the end are ignored. A
// name may contain any other byte, and ".." is an ordinary name: no path leads out of the tree. On
// Windows, names are case-insensitive and the name of a key has at most 255 characters. On POSIX,
// names are compared byte for byte and limited to the file system's 255 bytes; control characters,
// "%", "/", "\" and a first "." or "=" take three bytes each.

#ifndef QUILLKIT_PLATFORM_USER_SETTINGS_H_
#define QUILLKIT_PLATFORM_USER_SETTINGS_H_

#include <cstdint>

namespace quillkit {

// 0, or a Windows error number (on POSIX as well).
using SettingsStatus = std::int32_t;

inline constexpr SettingsStatus kSettingsDone = 0;
inline constexpr SettingsStatus kNoSuchSetting = 2;
inline constexpr SettingsStatus kSettingsDenied = 5;
inline constexpr SettingsStatus kSettingNameTooLong = 206;
inline constexpr SettingsStatus kMoreSettingData = 234;  // the buffer is too small
inline constexpr SettingsStatus kNoMoreSettings = 259;

enum class SettingsAccess {
  kRead,   // an existing key
  kWrite,  // an existing key, or a new one, created with all keys on its path
};

// An open key.
class SettingsKey {
 public:
  SettingsKey(const char* path, SettingsAccess access);
  SettingsKey(const SettingsKey&) = delete;
  SettingsKey& operator=(const SettingsKey&) = delete;
  ~SettingsKey();

  // The status of the opening. If it is not 0, call no other function.
  SettingsStatus OpenStatus() const { return openStatus; }

  // Copies the name of the subkey at `index`, in the order of names, with its NUL to `name`.
  // `*length` is the size of `name` in bytes and receives the length of the name without its NUL.
  // Returns 0; 234 if the buffer is too small, which leaves its content and `*length` unspecified;
  // 259 for an index after the last subkey.
  SettingsStatus SubkeyName(std::uint32_t index, char* name, std::uint32_t* length) const;

  // Copies a value of either type to `bytes`. `*size` is the size of `bytes` and receives the size
  // of the value. A text includes its NUL; an empty text has no bytes. Returns 0; 2 for a missing
  // value; 234 if the buffer is too small.
  SettingsStatus Read(const char* name, void* bytes, std::uint32_t* size) const;

  // Store a value. Replace an existing value of any type. The name may be empty.
  SettingsStatus WriteText(const char* name, const char* text);
  SettingsStatus WriteNumber(const char* name, std::uint32_t number);

 private:
  std::intptr_t handle = -1;
  SettingsStatus openStatus = kSettingsDone;
};

// Deletes a key and its values. Returns 0; 2 for a missing key; 5 for a key with subkeys.
SettingsStatus DeleteSettingsKey(const char* path);

}  // namespace quillkit

#endif  // QUILLKIT_PLATFORM_USER_SETTINGS_H_
