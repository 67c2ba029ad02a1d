#include <algorithm>
#include <memory>

#include "console/displayed_text.h"
#include "quillctl/check_command.h"
#include "quillctl/failures.h"
#include "quillctl/key_set.h"

namespace quillctl {
namespace {

const ItemFields kItem = {"Item", "192.0.2.1", "/first", "quillctl", 1, 0x10002};
const ItemFields kModified = {"Item", "192.0.2.2", "/second", "check", 3, 0x20031};
const ItemFields kRenamed = {"Renamed", "192.0.2.2", "/second", "check", 3, 0x20031};

// The key on which the changes are tested.
struct Trial {
  std::string name;
  std::string newName;
  std::vector<std::string> created;   // the names under which the key may be on the server
  bool allPassed = false;             // whether all earlier steps succeeded
  std::optional<KeyFields> expected;  // the key after the earlier changes
  quillkit::CTopLevelAB* book = nullptr;
  quillkit::CSoftKey* key = nullptr;  // in memory; null if the key does not exist

  OwnedKey Named() const { return MakeKey(name, book); }
  OwnedKey Renamed() const { return MakeKey(newName, book); }
};

struct Change {
  const char* title = nullptr;
  std::int32_t expected = 0;  // the status
  std::int32_t (*make)(Trial&) = nullptr;
  void (*after)(Trial&) = [](Trial&) {};  // updates the expected key
  // The name that the change creates. Such a change does not reload the keys, so its status is that
  // of the change alone.
  std::string Trial::*creates = nullptr;
};

std::int32_t Add(Trial& t) {
  return quillkit::AddKey(t.book, t.name, 0);
}

// The Fast functions are not tested: they make the same server calls.
constexpr Change kChanges[] = {
    {.title = "add a key",
     .make = Add,
     .after =
         [](Trial& t) {
           t.expected.emplace(KeyFields{t.name, {}});
         },
     .creates = &Trial::name},
    {.title = "add the same key again, which must be refused",
     .expected = quillkit::kNameConflict,
     .make = Add},
    {.title = "add an item",
     .make = [](Trial& t) { return quillkit::AddMenuItem(t.key, MakeItem(kItem).get(), 1); },
     .after = [](Trial& t) { t.expected->items = {kItem}; }},
    {.title = "modify the item",
     .make = [](Trial& t) { return quillkit::ModifyMenuItem(t.key, MakeItem(kModified).get(), 1); },
     .after = [](Trial& t) { t.expected->items = {kModified}; }},
    {.title = "rename the item",
     .make =
         [](Trial& t) {
           return quillkit::RenameMenuItem(t.key, kItem.name, MakeItem(kRenamed).get(), 1);
         },
     .after = [](Trial& t) { t.expected->items = {kRenamed}; }},
    {.title = "write the key",
     .make = [](Trial& t) { return quillkit::ModifyKey(t.book, t.Named().get(), 1); }},
    {.title = "rename the key",
     .make = [](Trial& t) { return quillkit::RenameSoftKey(t.book, t.name, t.Renamed().get()); },
     .after = [](Trial& t) { t.expected->name = t.newName; },
     .creates = &Trial::newName},
    {.title = "delete the item",
     .make = [](Trial& t) { return quillkit::DeleteMenuItem(t.key, kRenamed.name, 1); },
     .after = [](Trial& t) { t.expected->items.clear(); }},
    {.title = "delete the key",
     .make = [](Trial& t) { return quillkit::DeleteKey(t.book, t.newName, 1); },
     .after = [](Trial& t) { t.expected.reset(); }},
};

std::string ChooseNames(CheckRun& check, Trial& trial) {
  check.Keys();
  check.DeferTermination();
  check.RequireNotInterrupted();
  check.RequireUnchangedKeys();
  if (check.Keys().size() >= kMaxKeys) throw Skip("the appliance has no space for another key");
  trial.book = check.OpenSession().Book();
  trial.name = FreeName(trial.book);
  trial.newName = FreeName(trial.book, trial.name);
  RequireUnknown(trial.book, trial.name);
  RequireUnknown(trial.book, trial.newName);
  trial.allPassed = true;
  return console::Quoted(trial.name);
}

// Requires that the key of the trial is as expected and that the other keys are unchanged.
void RequireExpected(const CheckRun& check, const Trial& trial, KeySet found, const char* where) {
  const auto ofTrial = std::stable_partition(found.begin(), found.end(), [&](const KeyFields& key) {
    return key.name != trial.name && key.name != trial.newName;
  });
  if (KeySet(ofTrial, found.end()) != (trial.expected ? KeySet{*trial.expected} : KeySet{})) {
    throw Refusal(std::string("accepted, but not carried out ") + where);
  }
  found.erase(ofTrial, found.end());
  if (found != check.Keys()) {
    throw Refusal(std::string("accepted, but another key changed ") + where);
  }
}

std::string Make(CheckRun& check, Trial& trial, const Change& change) {
  const Session& session = check.OpenSession();
  check.RequireNotInterrupted();
  if (!trial.allPassed) throw Skip("an earlier step failed");
  trial.allPassed = false;
  trial.key = trial.expected ? FindKey(trial.book, trial.expected->name) : nullptr;
  const std::int32_t status = change.make(trial);
  // A name conflict means that another program created the key. After any other failure, this
  // change may have created it.
  if (change.creates != nullptr && status != quillkit::kNameConflict) {
    trial.created.push_back(trial.*change.creates);
  }
  RequireStatus(status, change.expected);
  change.after(trial);
  if (change.creates == nullptr) RequireExpected(check, trial, KeysIn(trial.book), "in memory");
  RequireExpected(check, trial, ReadKeySet(session), "on the server");
  trial.allPassed = true;
  return {};
}

// Deletes the key, even if the server does not list it. If that fails, tries again in a new
// session.
void RequireDeleted(CheckRun& check, const std::string& name) {
  const auto isDeleted = [](std::int32_t status) {
    return status == 0 || status == quillkit::kNoSuchBook;
  };
  Session& session = check.OpenSession();
  if (isDeleted(quillkit::DeleteKey(session.Book(), name, 0))) return;
  session.LogIn();
  const std::int32_t status = quillkit::DeleteKey(session.Book(), name, 0);
  if (!isDeleted(status)) throw Refusal(CodeAndText(status));
}

constexpr const char* kMayExist = " may still exist (delete it with quillctl key delete)";
constexpr const char* kExists = " still exists (delete it with quillctl key delete)";

void AppendKey(std::string& list, const std::string& name, const std::string& text) {
  list += (list.empty() ? "" : "; ") + console::Quoted(name) + text;
}

// Reads the keys after the deletion. A failure reports the names of the created keys.
KeySet ReadAfterDeletion(const Session& session, const Trial& trial) {
  try {
    return ReadKeySet(session);
  } catch (const Refusal& why) {
    std::string remaining;
    for (const std::string& name : trial.created) AppendKey(remaining, name, kMayExist);
    throw Refusal(remaining + ": " + why.what());
  }
}

// Deletes the created keys.
void DeleteCreated(CheckRun& check, const Trial& trial) {
  std::string remaining;
  for (const std::string& name : trial.created) {
    try {
      RequireDeleted(check, name);
    } catch (const std::exception& error) {
      AppendKey(remaining, name, std::string(kMayExist) + ": " + error.what());
    }
  }
  if (!remaining.empty()) throw Refusal(remaining);
}

// Requires that the created keys no longer exist.
void RequireNoneLeft(const KeySet& keys, const Trial& trial) {
  std::string remaining;
  for (const std::string& name : trial.created) {
    const bool exists = std::ranges::count(keys, name, &KeyFields::name) != 0;
    if (exists) AppendKey(remaining, name, kExists);
  }
  if (!remaining.empty()) throw Refusal(remaining);
}

std::string CleanUp(CheckRun& check, const Trial& trial) {
  if (trial.created.empty()) throw Skip("nothing was added");
  const bool isDeleted = trial.allPassed && !trial.expected;
  if (!isDeleted) DeleteCreated(check, trial);
  const KeySet now = ReadAfterDeletion(check.OpenSession(), trial);
  RequireNoneLeft(now, trial);
  check.RequireUnchanged(now);
  return "the keys are the same as before";
}

}  // namespace

std::vector<Step> ChangingSteps() {
  const auto trial = std::make_shared<Trial>();
  std::vector<Step> steps = {
      {"choose a name for a new key", [trial](CheckRun& c) { return ChooseNames(c, *trial); }}};
  for (const Change& each : kChanges) {
    steps.push_back({each.title, [trial, &each](CheckRun& c) { return Make(c, *trial, each); }});
  }
  steps.push_back({"clean up", [trial](CheckRun& c) { return CleanUp(c, *trial); }});
  return steps;
}

}  // namespace quillctl
