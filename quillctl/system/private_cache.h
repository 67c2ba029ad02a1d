// Short-lived files of the user, and the mark of a running session. For shell completion.

#ifndef QUILLCTL_SYSTEM_PRIVATE_CACHE_H_
#define QUILLCTL_SYSTEM_PRIVATE_CACHE_H_

#include <string>

namespace quillctl {

// Returns a folder that only the user can access, and creates it if necessary. Empty if there is
// none; on Windows, always.
std::string PrivateCacheFolder();

// While this object exists, other processes of the user see that a session is running. No effect if
// there is no PrivateCacheFolder().
class SessionMark {
 public:
  SessionMark();
  SessionMark(const SessionMark&) = delete;
  SessionMark& operator=(const SessionMark&) = delete;
  ~SessionMark();

  // Returns whether a process of the user has a SessionMark.
  static bool Exists();

 private:
  int descriptor = -1;
};

// Ends the process, with status 0, after this time.
void LimitTime(int milliseconds);

}  // namespace quillctl

#endif  // QUILLCTL_SYSTEM_PRIVATE_CACHE_H_
