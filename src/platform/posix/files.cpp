#include "platform/files.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string_view>
#include <utility>

namespace quillkit {
namespace {

// Returns whether the whole `name` matches `pattern`. After a mismatch, the latest "*" matches one
// more character; an earlier one never needs to.
bool Matches(std::string_view pattern, std::string_view name) {
  constexpr std::size_t kNone = std::string_view::npos;
  std::size_t at = 0;
  std::size_t afterStar = kNone;
  std::size_t retry = 0;
  for (std::size_t i = 0; i < name.size();) {
    if (at < pattern.size() && pattern[at] == '*') {
      afterStar = ++at;
      retry = i;
    } else if (at < pattern.size() && (pattern[at] == '?' || pattern[at] == name[i])) {
      ++at;
      ++i;
    } else if (afterStar != kNone) {
      at = afterStar;
      i = ++retry;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*', at) == kNone;
}

bool FolderContains(const std::string& folder, std::string_view pattern) {
  struct Close {
    void operator()(DIR* open) const { closedir(open); }
  };
  const std::unique_ptr<DIR, Close> open(opendir(folder.empty() ? "." : folder.c_str()));
  if (open == nullptr) return false;
  while (const dirent* entry = readdir(open.get())) {
    if (Matches(pattern, entry->d_name)) return true;
  }
  return false;
}

// The folder is the value of the first of these variables that is not empty.
std::filesystem::path TemporaryFolder() {
  for (const char* const variable : {"TMPDIR", "TMP", "TEMP", "TEMPDIR"}) {
    const char* const folder = std::getenv(variable);
    if (folder != nullptr && *folder != '\0') return folder;
  }
  return "/tmp";
}

}  // namespace

bool MatchesAnyFile(const char* path) {
  if (path == nullptr) return false;
  const std::string whole = path;
  const std::size_t split = whole.rfind('/') + 1;  // 0 without a folder
  const std::string last = whole.substr(split);
  if (last.empty()) return false;
  if (last.find_first_of("*?") != std::string::npos) {
    return FolderContains(whole.substr(0, split), last);
  }
  struct stat found {};
  return lstat(path, &found) == 0;
}

CreatedFile CreateTemporaryFile(const char* prefix) {
  std::string path = (TemporaryFolder() / prefix).string() + "XXXXXX";
  OpenFile file(mkostemp(path.data(), O_CLOEXEC));
  if (!file.IsOpen()) return {};
  return {std::move(path), std::move(file)};
}

std::string SystemPath(const std::string& utf8) {
  return utf8;
}

void DeleteFileAt(const std::string& path) {
  unlink(path.c_str());
}

}  // namespace quillkit
