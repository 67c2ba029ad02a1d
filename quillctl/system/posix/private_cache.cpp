#include "quillctl/system/private_cache.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <utility>

namespace quillctl {
namespace {

// The folder that the environment names: XDG_RUNTIME_DIR, XDG_CACHE_HOME or HOME/.cache.
std::string ParentFolder() {
  for (const auto& [variable, below] :
       {std::pair{"XDG_RUNTIME_DIR", ""}, std::pair{"XDG_CACHE_HOME", ""},
        std::pair{"HOME", "/.cache"}}) {
    const char* const folder = std::getenv(variable);
    if (folder != nullptr && *folder == '/') return std::string(folder) + below;
  }
  return {};
}

int OpenMark() {
  const std::string folder = PrivateCacheFolder();
  if (folder.empty()) return -1;
  return open((folder + "/session").c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
}

extern "C" void EndProcess(int) {
  _exit(0);
}

}  // namespace

std::string PrivateCacheFolder() {
  const std::string parent = ParentFolder();
  if (parent.empty()) return {};
  const std::string folder = parent + "/quillctl";
  mkdir(folder.c_str(), 0700);
  struct stat found = {};
  const bool isPrivate = lstat(folder.c_str(), &found) == 0 && S_ISDIR(found.st_mode) &&
                         found.st_uid == geteuid() && (found.st_mode & 077) == 0;
  return isPrivate ? folder : std::string();
}

SessionMark::SessionMark() : descriptor(OpenMark()) {
  if (descriptor >= 0) flock(descriptor, LOCK_SH);
}

SessionMark::~SessionMark() {
  if (descriptor >= 0) close(descriptor);
}

bool SessionMark::Exists() {
  const int mark = OpenMark();
  if (mark < 0) return false;
  const bool exists = flock(mark, LOCK_EX | LOCK_NB) != 0;
  close(mark);
  return exists;
}

void LimitTime(int milliseconds) {
  static_cast<void>(std::signal(SIGALRM, EndProcess));
  itimerval timer = {};
  timer.it_value.tv_sec = milliseconds / 1000;
  timer.it_value.tv_usec = suseconds_t{milliseconds % 1000} * 1000;
  setitimer(ITIMER_REAL, &timer, nullptr);
}

}  // namespace quillctl
