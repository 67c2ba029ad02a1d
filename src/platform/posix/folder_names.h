// The names in a folder.

#ifndef QUILLKIT_PLATFORM_POSIX_FOLDER_NAMES_H_
#define QUILLKIT_PLATFORM_POSIX_FOLDER_NAMES_H_

#include <dirent.h>
#include <fcntl.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/posix/descriptor.h"

namespace quillkit {

// Returns the names of all entries of the open folder, or none if it cannot be read.
inline std::vector<std::string> NamesIn(int folder) {
  struct Close {
    void operator()(DIR* open) const { closedir(open); }
  };
  std::vector<std::string> names;
  const int again = openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  const std::unique_ptr<DIR, Close> entries(fdopendir(again));
  if (entries == nullptr) {
    const Descriptor closed(again);
    return names;
  }
  while (const dirent* entry = readdir(entries.get())) {
    const std::string_view name = entry->d_name;
    if (name != "." && name != "..") names.emplace_back(name);
  }
  return names;
}

}  // namespace quillkit

#endif  // QUILLKIT_PLATFORM_POSIX_FOLDER_NAMES_H_
