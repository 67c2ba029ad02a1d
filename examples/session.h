// A login to the appliance that lasts as long as this object, and the handles that the rest of
// quillctl works with.

#ifndef QUILLKIT_EXAMPLES_SESSION_H_
#define QUILLKIT_EXAMPLES_SESSION_H_

#include <memory>
#include <string>

#include "toolkit/quillkit.h"

namespace quillctl {

struct Credentials {
  std::string host = "127.0.0.1";
  std::string user = "ADMINISTRATOR";
  std::string password;
  bool hasPassword = false;  // whether one was given, be it empty
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
  // Logs in. Throws a Refusal that tells why when that fails.
  explicit Session(const Credentials& credentials);
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  // Logs out, unless LogOut has, and lets the server library go.
  ~Session();

  // The scanner stays readable.
  void LogOut();

  quillkit::CScanner* scanner() const { return scanner_; }
  const std::string& user() const { return user_; }

  // The top-level book, with its keys read anew, and their items too when `withItems` is set.
  // Throws a Refusal for a user who has no such book, and when it cannot be read.
  quillkit::CTopLevelAB* LoadKeys(bool withItems) const;

 private:
  quillkit::CScanner* scanner_;
  std::string user_;
  bool open_ = true;
};

}  // namespace quillctl

#endif  // QUILLKIT_EXAMPLES_SESSION_H_
