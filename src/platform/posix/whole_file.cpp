#include "platform/posix/whole_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <string>
#include <string_view>
#include <utility>

#include "platform/draft.h"
#include "platform/open_file.h"
#include "platform/posix/descriptor.h"
#include "platform/posix/folder_names.h"

namespace quillkit {
namespace {

constexpr mode_t kPrivateFile = 0600;
constexpr mode_t kNewFile = 0666;
constexpr mode_t kAllRights = 07777;

// Returns whether the name in the folder still refers to the open file and the file is regular.
bool IsAt(int folder, const std::string& name, int file) {
  struct stat open {};
  struct stat named {};
  return fstat(file, &open) == 0 && S_ISREG(open.st_mode) &&
         fstatat(folder, name.c_str(), &named, AT_SYMLINK_NOFOLLOW) == 0 &&
         open.st_dev == named.st_dev && open.st_ino == named.st_ino;
}

bool Lock(int file) {
  return flock(file, LOCK_EX | LOCK_NB) == 0;
}

// Removes the drafts in the folder that no process has locked. Checks the name after locking: it
// may refer to another file by then.
void RemoveAbandonedDrafts(int folder) {
  for (const std::string& each : NamesIn(folder)) {
    if (!IsDraftName(each)) continue;
    const Descriptor draft(
        openat(folder, each.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (draft.IsOpen() && Lock(draft.Number()) && IsAt(folder, each, draft.Number())) {
      unlinkat(folder, each.c_str(), 0);
    }
  }
}

// A draft, locked while the object exists.
class Draft {
 public:
  Draft(int newFolder, mode_t rights) : folder(newFolder) {
    RemoveAbandonedDrafts(folder);
    file = Create(rights);
  }
  Draft(const Draft&) = delete;
  Draft& operator=(const Draft&) = delete;
  ~Draft() {
    if (file.IsOpen() && !isMoved) unlinkat(folder, name.c_str(), 0);
  }

  int Descriptor() const { return file.Descriptor(); }

  // Writes the draft and moves it to this name. Returns 0 or an errno value.
  int WriteAndMove(const char* place, std::string_view bytes) {
    if (!file.IsOpen()) return error;
    isMoved =
        file.Write(bytes) && file.Sync() && renameat(folder, name.c_str(), folder, place) == 0;
    return isMoved ? 0 : errno;
  }

 private:
  // Uses the first free number. Until the draft is locked, it looks abandoned: if another process
  // has locked or removed it, a new one is needed. On a file system without locks, no draft is ever
  // removed.
  OpenFile Create(mode_t rights) {
    for (unsigned number = 1;; ++number) {
      name = DraftName(number);
      OpenFile created(
          openat(folder, name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, rights));
      error = errno;
      if (!created.IsOpen() && error != EEXIST) return {};
      if (!created.IsOpen()) continue;
      const bool isTaken = !Lock(created.Descriptor()) && errno == EWOULDBLOCK;
      if (!isTaken && IsAt(folder, name, created.Descriptor())) return created;
    }
  }

  int folder;
  std::string name;
  OpenFile file;
  int error = 0;  // of the creation
  bool isMoved = false;
};

}  // namespace

int ReplaceFile(int folder, const char* name, const void* bytes, std::size_t size) {
  return Draft(folder, kPrivateFile).WriteAndMove(name, {static_cast<const char*>(bytes), size});
}

bool ReplaceFileAt(const std::string& path, std::string_view bytes, Readers readers) {
  const std::size_t split = path.rfind('/') + 1;  // 0 without a folder
  const char* const name = path.c_str() + split;
  const Descriptor folder(
      open(split == 0 ? "." : path.substr(0, split).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!folder.IsOpen()) return false;
  struct stat before {};
  const bool isThere = fstatat(folder.Number(), name, &before, AT_SYMLINK_NOFOLLOW) == 0;
  const mode_t rights = before.st_mode & kAllRights;

  const bool isPrivate = isThere || readers == Readers::kOwner;
  Draft draft(folder.Number(), isPrivate ? kPrivateFile : kNewFile);
  // Only the owner gets more rights on the draft than on the old file.
  if (isThere && fchmod(draft.Descriptor(), rights | kPrivateFile) != 0) return false;
  if (draft.WriteAndMove(name, bytes) != 0) return false;
  if (isThere) fchmod(draft.Descriptor(), rights);
  return true;
}

int ReadFile(int folder, const char* name, void* bytes, std::uint32_t* size) {
  // Do not block on a file that is not regular, such as a pipe.
  OpenFile file(openat(folder, name, O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  struct stat found {};
  if (!file.IsOpen() || fstat(file.Descriptor(), &found) != 0) return errno;
  if (!S_ISREG(found.st_mode)) return ENOENT;
  const std::uint32_t room = *size;
  const auto whole = static_cast<std::uint64_t>(found.st_size);
  *size = static_cast<std::uint32_t>(std::min<std::uint64_t>(whole, UINT32_MAX));
  if (*size > room) return EOVERFLOW;
  if (file.Read(static_cast<char*>(bytes), *size) == *size) return 0;
  return file.HasFailed() ? errno : EIO;
}

}  // namespace quillkit
