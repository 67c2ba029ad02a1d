// `quillctl check`: tests, step by step, whether an appliance is compatible with Quillkit.

#ifndef QUILLCTL_CHECK_COMMAND_H_
#define QUILLCTL_CHECK_COMMAND_H_

#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "bridge/status.h"
#include "console/system/deferred_termination.h"
#include "quillctl/key_set.h"
#include "quillctl/session.h"

namespace quillctl {

// The reason why a step was skipped.
class Skip : public std::runtime_error {
  using runtime_error::runtime_error;
};

// One run of the check: the session and what earlier steps found.
class CheckRun {
 public:
  explicit CheckRun(const Credentials& newCredentials) : credentials(newCredentials) {}

  Session& LogIn() {
    session.emplace(credentials);
    wasLoggedIn = true;
    return *session;
  }

  // Returns whether a login succeeded, even if the session is closed now.
  bool WasLoggedIn() const { return wasLoggedIn; }

  // Returns the session. Throws a Skip if none is open.
  Session& OpenSession();

  // Returns the names of the keys from the first listing. Throws a Skip if there was none.
  const std::vector<std::string>& ListedNames() const;
  void SetListedNames(std::vector<std::string> names) { listed = std::move(names); }

  // Returns the keys from the first reading. Throws a Skip if there was none.
  const KeySet& Keys() const;
  void SetKeys(KeySet newKeys) { keys = std::move(newKeys); }

  // After this call, RequireNotInterrupted throws a Skip once termination is requested.
  void DeferTermination() {
    if (!termination) termination.emplace("deleting the key that was added");
  }
  void RequireNotInterrupted() const;
  bool IsInterrupted() const { return termination && termination->IsRequested(); }

  // Throws a Refusal that describes the first difference if `now` differs from Keys().
  void RequireUnchanged(const KeySet& now) const;

  // Reads the keys and calls RequireUnchanged.
  void RequireUnchangedKeys() { RequireUnchanged(ReadKeySet(OpenSession())); }

 private:
  Credentials credentials;
  std::optional<Session> session;
  bool wasLoggedIn = false;
  std::optional<std::vector<std::string>> listed;
  std::optional<KeySet> keys;
  std::optional<console::DeferredTermination> termination;
};

// Returns a name that no key of the loaded book has and that differs from `taken`.
std::string FreeName(quillkit::CTopLevelAB* book, const std::string& taken = "");

// Throws a Refusal unless the server reports that it has no key of this name.
void RequireUnknown(quillkit::CTopLevelAB* book, const std::string& name);

// One test. `run` returns details for the user, possibly none, or throws: a Refusal if the test
// fails, a Skip if it cannot be run.
struct Step {
  std::string title;
  std::function<std::string(CheckRun&)> run;
};

// Steps that change nothing on the server. Afterwards the session is open if the last login
// succeeded.
std::vector<Step> ReadingSteps();

// Steps that read the address books and the distribution lists and change nothing.
std::vector<Step> BookSteps();

// Steps that add a key, change it and delete it again. The key is also deleted after a failure or
// an interruption. If that fails, the last step reports that the key still exists.
std::vector<Step> ChangingSteps();

// Steps that import an entry and delete it again, and that wait for two periods of the keep-alive.
// Each only if it is requested.
std::vector<Step> ServiceSteps(bool write, bool keepAlive);

// Steps that save the answer sheet in a file, and that compare it with a file. An
// empty path adds no step.
std::vector<Step> AnswerSteps(const std::string& savePath, const std::string& comparePath);

std::vector<Step> ClosingSteps();

}  // namespace quillctl

#endif  // QUILLCTL_CHECK_COMMAND_H_
