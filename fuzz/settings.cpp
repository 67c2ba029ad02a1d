// The settings of directory servers in a folder with any files. The input has a line for each file
// or operation; its first character is one of
//
//   d NAME         a folder in the folder of the settings, with the value "v"
//   f NAME TEXT    a file there
//   l NAME         a symbolic link there, to a folder outside of the settings
//   s NAME TEXT    the text is stored as the value "v" of the profile NAME
//   n NAME TEXT    its length is stored as a number
//   x NAME         the profile is deleted
//
// and a missing NAME means the settings without a profile.

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

#include "fuzz/input.h"
#include "settings/ldap_settings_store.h"
#include "tests/support/environment_variable.h"
#include "tests/support/scratch_folder.h"

namespace quillkit {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLongestText = 512;
constexpr const char* kValue = "v";

struct Line {
  explicit Line(std::string_view text) : kind(text.empty() ? ' ' : text.front()) {
    text.remove_prefix(std::min<std::size_t>(2, text.size()));
    name = text.substr(0, text.find(' '));
    text.remove_prefix(std::min(name.size() + 1, text.size()));
    value = text;
    // What a caller passes ends at a NUL.
    name = name.substr(0, name.find('\0'));
  }

  char kind;
  std::string name;
  std::string value;
};

class Folder {
 public:
  Folder() {
    fs::create_directories(outside);
    WriteBytes(outside / ("=" + std::string(kValue)), kSecret);
    std::error_code ignored;
    fs::remove_all(home / "quillkit", ignored);
    fs::create_directories(keys);
  }

  void Run(const Line& line) {
    const std::string name = line.name;
    const bool isInside =
        name.find('/') == name.npos && name != "." && name != ".." && !name.empty();
    const fs::path file = keys / name;
    std::error_code ignored;
    switch (line.kind) {
      case 'd':
        if (isInside && fs::create_directory(file, ignored)) WriteBytes(file / "=v", "old");
        return;
      case 'f':
        if (isInside && !fs::exists(fs::symlink_status(file, ignored))) {
          std::FILE* const made = std::fopen(file.c_str(), "wb");
          if (made == nullptr) return;
          std::fwrite(line.value.data(), 1, line.value.size(), made);
          std::fclose(made);
        }
        return;
      case 'l':
        if (isInside) fs::create_directory_symlink(outside, file, ignored);
        return;
      case 's':
        return CheckText(name, line.value.substr(0, line.value.find('\0')));
      case 'n':
        return CheckNumber(name, static_cast<std::uint32_t>(line.value.size()));
      case 'x':
        if (DeleteLdapProfile(name.c_str()) == 1) {
          Require(GetLdapString(name.c_str(), kValue).empty(), "a deleted profile has no value");
        }
        return;
      default:
        return;
    }
  }

  // The enumeration ends, and every profile in it can be read.
  void CheckProfiles() {
    std::size_t left = 1;
    std::error_code none;
    for (const auto& each : fs::directory_iterator(keys, none)) left += each.is_directory() ? 1 : 0;
    for (SettingsStatus status = kSettingsDone;
         status != kNoMoreSettings && status != kNoSuchSetting; --left) {
      Require(left > 0, "there are no more profiles than folders");
      char name[32];
      std::uint32_t length = sizeof name;
      status = EnumLdapProfiles(name, &length);
      if (status != kSettingsDone) continue;
      Require(length < sizeof name && name[length] == '\0', "the name of a profile ends");
      const std::string text = GetLdapString(name, kValue);
      Require(text.size() <= kLongestText, "a text is not longer than 512 characters");
      Require(text != kSecret, "links are not followed");
      GetLdapDword(name, kValue, 0);
    }
    Require(ReadBytes(outside / "=v") == kSecret, "files outside of the settings do not change");
  }

 private:
  static void CheckText(const std::string& profile, const std::string& text) {
    const std::string before = GetLdapString(profile.c_str(), kValue);
    const bool isStored = SetLdapString(profile.c_str(), kValue, text.c_str()) == 1;
    const std::string after = GetLdapString(profile.c_str(), kValue);
    const std::string expected = text.size() <= kLongestText ? text : "";
    Require(after == (isStored ? expected : before), "a stored text is read back");
  }

  // Where a text can be stored, a number can be, too.
  static void CheckNumber(const std::string& profile, std::uint32_t number) {
    if (SetLdapString(profile.c_str(), kValue, "") == 0) return;
    SetLdapDword(profile.c_str(), kValue, number);
    Require(GetLdapDword(profile.c_str(), kValue, ~number) == number,
            "a stored number is read back");
  }

  static constexpr std::string_view kSecret = "of another program";

  static const ScratchFolder& Scratch() {
    static const ScratchFolder folder;
    return folder;
  }

  const fs::path home = Scratch().Path() / "home";
  const fs::path outside = Scratch().Path() / "outside";
  const fs::path keys = home / "quillkit/Software/Tarvenor/Ledgerhouse/LDAP";
  const EnvironmentVariable variable{"XDG_CONFIG_HOME", home.string()};
};

}  // namespace
}  // namespace quillkit

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr int kMostLines = 20;
  std::string_view lines(reinterpret_cast<const char*>(data), size);
  quillkit::Folder folder;
  for (int i = 0; i < kMostLines && !lines.empty(); ++i) {
    const std::string_view line = lines.substr(0, lines.find('\n'));
    lines.remove_prefix(std::min(line.size() + 1, lines.size()));
    folder.Run(quillkit::Line(line));
  }
  folder.CheckProfiles();
  return 0;
}
