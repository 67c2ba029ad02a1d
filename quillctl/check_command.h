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
  explicit Checkup(const Credentials& newCredentials) : credentials(newCredentials) {}

  Session& LogIn() {
    session.emplace(credentials);
    wasLoggedIn = true;
    return *session;
  }

  // Whether a login was good, be the session open or not.
  bool WasLoggedIn() const { return wasLoggedIn; }

  // The session; a Skip where there is none.
  Session& OpenSession();

  // The names of the keys when they were first listed; a Skip where they were not.
  const std::vector<std::string>& Listed() const;
  void SetListed(std::vector<std::string> names) { listed = std::move(names); }

  // The keys as they were when they were first read; a Skip where they were not.
  const KeySet& Keys() const;
  void SetKeys(KeySet newKeys) { keys = std::move(newKeys); }

  // From here on RequireTime throws a Skip once termination is requested.
  void DeferTermination() {
    if (!termination) termination.emplace();
  }
  void RequireTime() const;

  // A Refusal that tells what differs where the keys are not as they were.
  void RequireSame(const KeySet& now) const;

  // The same for the keys as they are when they are read anew.
  void RequireSameKeys() { RequireSame(ReadKeySet(OpenSession())); }

 private:
  Credentials credentials;
  std::optional<Session> session;
  bool wasLoggedIn = false;
  std::optional<std::vector<std::string>> listed;
  std::optional<KeySet> keys;
  std::optional<DeferredTermination> termination;
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
