// A login to the appliance that lasts as long as this object, and the handles that the rest of
// quillctl works with.

#ifndef QUILLCTL_SESSION_H_
#define QUILLCTL_SESSION_H_

#include <memory>
#include <optional>
#include <string>

#include "toolkit/quillkit.h"

namespace quillctl {

// The account that may do everything.
inline constexpr const char* kAdministrator = "ADMINISTRATOR";

struct Credentials {
  std::string host = "127.0.0.1";
  std::string user = kAdministrator;
  std::optional<std::string> password;  // none: whoever sits at the terminal is asked
  std::string third;
};

// Objects that the application owns.
struct DestroyHandle {
  void operator()(quillkit::CMenuItem* item) const { quillkit::DestroyMenuItem(item); }
  void operator()(quillkit::CSoftKey* key) const { quillkit::DestroySoftKey(key); }
};
using OwnedItem = std::unique_ptr<quillkit::CMenuItem, DestroyHandle>;
using OwnedKey = std::unique_ptr<quillkit::CSoftKey, DestroyHandle>;

class Session {
 public:
  // Logs in. Throws a LoginRefusal that tells why when that fails.
  explicit Session(const Credentials& newCredentials);
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  // Logs out, unless LogOut has, and lets the server library go.
  ~Session();

  // The scanner stays readable.
  void LogOut();

  // Logs in anew, as the constructor did. Handles of the session before are good no more.
  void LogIn();

  bool IsOpen() const { return isOpen; }
  quillkit::CScanner* Scanner() const { return scanner; }
  const std::string& User() const { return credentials.user; }

  // The top-level book as it is in memory. Throws a Refusal for a user who has none.
  quillkit::CTopLevelAB* Book() const;

  // The top-level book, with its keys read anew, and their items too when `withItems` is set.
  // Throws as Book() does, and a Refusal when it cannot be read.
  quillkit::CTopLevelAB* LoadKeys(bool withItems) const;

 private:
  Credentials credentials;
  quillkit::CScanner* scanner = nullptr;
  bool isOpen = false;
};

}  // namespace quillctl

#endif  // QUILLCTL_SESSION_H_
