#include "platform/posix/setting_names.h"

#include <charconv>
#include <cstdlib>

#include "platform/draft.h"

namespace quillkit {
namespace {

constexpr char kSeparator = '\\';
constexpr char kValueMark = '=';
constexpr char kEscape = '%';
constexpr std::string_view kHexDigits = "0123456789ABCDEF";

bool IsEscaped(char byte, bool isFirst) {
  const auto code = static_cast<unsigned char>(byte);
  if (code < ' ' || code == 0x7F) return true;
  if (byte == kEscape || byte == '/' || byte == kSeparator) return true;
  return isFirst && (byte == '.' || byte == kValueMark);
}

std::string Escaped(std::string_view name) {
  std::string text;
  for (const char& each : name) {
    if (!IsEscaped(each, &each == name.data())) {
      text += each;
      continue;
    }
    const auto code = static_cast<unsigned char>(each);
    text += {kEscape, kHexDigits[code >> 4], kHexDigits[code & 0xF]};
  }
  return text;
}

// The folder named by an environment variable. Empty if the variable has no absolute path.
std::string FolderFrom(const char* variable) {
  const char* const folder = std::getenv(variable);
  return folder != nullptr && folder[0] == '/' ? folder : "";
}

std::string ConfigurationFolder() {
  std::string folder = FolderFrom("XDG_CONFIG_HOME");
  if (!folder.empty()) return folder;
  folder = FolderFrom("HOME");
  return folder.empty() ? folder : folder + "/.config";
}

}  // namespace

std::string ValueFileName(std::string_view value) {
  return kValueMark + Escaped(value);
}

std::string KeyFolder(std::string_view path) {
  std::string folder = ConfigurationFolder();
  if (folder.empty()) return folder;
  folder += "/quillkit";
  while (!path.empty()) {
    const std::string_view key = path.substr(0, path.find(kSeparator));
    path.remove_prefix(key.size() < path.size() ? key.size() + 1 : key.size());
    if (!key.empty()) folder += '/' + Escaped(key);
  }
  return folder;
}

std::optional<std::string> KeyOfFolderName(std::string_view folder) {
  std::string key;
  for (std::string_view rest = folder; !rest.empty();) {
    char byte = rest.front();
    std::size_t taken = 1;
    if (byte == kEscape && rest.size() >= 3) {
      unsigned code = 0;
      std::from_chars(rest.data() + 1, rest.data() + 3, code, 16);
      if (code == 0) return std::nullopt;
      byte = static_cast<char>(code);
      taken = 3;
    }
    key += byte;
    rest.remove_prefix(taken);
  }
  // Any other form of the name was not written by this library.
  if (key.empty() || Escaped(key) != folder) return std::nullopt;
  return key;
}

bool IsValueFileName(std::string_view file) {
  return file.starts_with(kValueMark) || IsDraftName(file);
}

}  // namespace quillkit
