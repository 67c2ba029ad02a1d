// The login session, and the handles that commands use.

#ifndef QUILLCTL_SESSION_H_
#define QUILLCTL_SESSION_H_

#include <memory>
#include <optional>
#include <string>

#include "quillctl/system/private_cache.h"
#include "toolkit/quillkit.h"

namespace quillctl {

// The account with all rights.
inline constexpr const char* kAdministrator = "ADMINISTRATOR";

struct Credentials {
  std::string host = "127.0.0.1";
  std::string user = kAdministrator;
  std::optional<std::string> password;  // if absent, the user is asked at the terminal
  std::string third;
};

// Handles that the application owns.
struct DestroyHandle {
  void operator()(quillkit::CMenuItem* item) const { quillkit::DestroyMenuItem(item); }
  void operator()(quillkit::CSoftKey* key) const { quillkit::DestroySoftKey(key); }
};
using OwnedItem = std::unique_ptr<quillkit::CMenuItem, DestroyHandle>;
using OwnedKey = std::unique_ptr<quillkit::CSoftKey, DestroyHandle>;

// A login session. It lasts as long as this object.
class Session {
 public:
  // Logs in. Throws a LoginRefusal with the reason on failure.
  explicit Session(const Credentials& newCredentials);
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  // Logs out, unless LogOut was called, and releases the server library.
  ~Session();

  // Logs out. Scanner() stays valid.
  void LogOut();

  // Logs in again with the same credentials. Handles from before become invalid.
  void LogIn();

  bool IsOpen() const { return isOpen; }
  quillkit::CScanner* Scanner() const { return scanner; }
  const std::string& User() const { return credentials.user; }

  // Returns the top-level book without reading it. Throws a Refusal for an account that has none.
  quillkit::CTopLevelAB* Book() const;

  // Reads the keys and, if `withItems` is set, their items. Returns the top-level book. Throws a
  // Refusal as Book() does, and if the keys cannot be read.
  quillkit::CTopLevelAB* LoadKeys(bool withItems) const;

 private:
  Credentials credentials;
  SessionMark mark;
  quillkit::CScanner* scanner = nullptr;
  bool isOpen = false;
};

}  // namespace quillctl

#endif  // QUILLCTL_SESSION_H_
