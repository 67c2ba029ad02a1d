// `quillctl check`: whether the toolkit can work with an appliance, step by step.

#ifndef QUILLCTL_CHECK_COMMAND_H_
#define QUILLCTL_CHECK_COMMAND_H_

#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "bridge/status.h"
#include "quillctl/key_set.h"
#include "quillctl/session.h"
#include "quillctl/system/deferred_termination.h"

namespace quillctl {

class Commands;

// Adds "check".
void AddCheckCommand(Commands& commands);

// Why a step was not made.
class Skip : public std::runtime_error {
  using runtime_error::runtime_error;
};

class Checkup {
 public:
  explicit Checkup(const Credentials& credentials) : credentials_(credentials) {}

  Session& LogIn() {
    session_.emplace(credentials_);
    wasLoggedIn_ = true;
    return *session_;
  }

  // Whether a login was good, be the session open or not.
  bool WasLoggedIn() const { return wasLoggedIn_; }

  // The session; a Skip where there is none.
  Session& session();

  // The names of the keys when they were first listed; a Skip where they were not.
  const std::vector<std::string>& listed() const;
  void SetListed(std::vector<std::string> names) { listed_ = std::move(names); }

  // The keys as they were when they were first read; a Skip where they were not.
  const KeySet& keys() const;
  void SetKeys(KeySet keys) { keys_ = std::move(keys); }

  // From here on RequireTime throws a Skip once termination is requested.
  void DeferTermination() {
    if (!termination_) termination_.emplace();
  }
  void RequireTime() const;

  // A Refusal that tells what differs where the keys are not as they were.
  void RequireSame(const KeySet& now) const;

  // The same for the keys as they are when they are read anew.
  void RequireSameKeys() { RequireSame(ReadKeySet(session())); }

 private:
  Credentials credentials_;
  std::optional<Session> session_;
  bool wasLoggedIn_ = false;
  std::optional<std::vector<std::string>> listed_;
  std::optional<KeySet> keys_;
  std::optional<DeferredTermination> termination_;
};

// A name that no key of a book that was loaded has, nor is `taken`.
std::string FreeName(quillkit::CTopLevelAB* book, const std::string& taken = "");

// Requires that the server, asked for a key of this name, says that there is none.
void RequireUnknown(quillkit::CTopLevelAB* book, const std::string& name);

// What a step that is good has to tell, which may be nothing. One that fails throws a Refusal.
struct Step {
  std::string title;
  std::function<std::string(Checkup&)> run;
};

// They change nothing on the server. The session is open behind them where the login was good.
std::vector<Step> ReadingSteps();

// They add a key of their own, change it and delete it again. Whatever fails, and also when the
// user interrupts them, the key goes, or a step tells that it is left behind.
std::vector<Step> ChangingSteps();

std::vector<Step> ClosingSteps();

}  // namespace quillctl

#endif  // QUILLCTL_CHECK_COMMAND_H_
