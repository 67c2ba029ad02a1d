#include <algorithm>
#include <memory>

#include "quillctl/check_command.h"
#include "quillctl/displayed_text.h"
#include "quillctl/failures.h"
#include "quillctl/key_set.h"

namespace quillctl {
namespace {

const ItemFields kItem = {"Item", "192.0.2.1", "/first", "quillctl", 1, 0x10002};
const ItemFields kModified = {"Item", "192.0.2.2", "/second", "check", 3, 0x20031};
const ItemFields kRenamed = {"Renamed", "192.0.2.2", "/second", "check", 3, 0x20031};

// The key that the changes are tried with.
struct Trial {
  std::string name;
  std::string newName;
  std::vector<std::string> ours;    // of the two names, those that a key of ours may have
  bool isGood = false;              // whether all steps before were
  std::optional<KeyFields> wanted;  // what the changes before made of it
  quillkit::CTopLevelAB* book = nullptr;
  quillkit::CSoftKey* key = nullptr;  // in memory, where it is there

  OwnedKey Named() const { return MakeKey(name, book); }
  OwnedKey Renamed() const { return MakeKey(newName, book); }
};

struct Change {
  const char* title = nullptr;
  std::int32_t expected = 0;  // the status
  std::int32_t (*make)(Trial&) = nullptr;
  void (*after)(Trial&) = [](Trial&) {};  // what it makes of the wanted key
  // The name that the key then has for the first time. Such a change does not reload the keys, so
  // that its status is that of the change alone.
  std::string Trial::*creates = nullptr;
};

std::int32_t Add(Trial& t) {
  return quillkit::AddKey(t.book, t.name, 0);
}

// The Fast functions make the same calls of the server.
constexpr Change kChanges[] = {
    {.title = "add a key",
     .make = Add,
     .after =
         [](Trial& t) {
           t.wanted.emplace(KeyFields{t.name, {}});
         },
     .creates = &Trial::name},
    {.title = "add it again, which is refused", .expected = quillkit::kNameConflict, .make = Add},
    {.title = "add an item",
     .make = [](Trial& t) { return quillkit::AddMenuItem(t.key, MakeItem(kItem).get(), 1); },
     .after = [](Trial& t) { t.wanted->items = {kItem}; }},
    {.title = "modify the item",
     .make = [](Trial& t) { return quillkit::ModifyMenuItem(t.key, MakeItem(kModified).get(), 1); },
     .after = [](Trial& t) { t.wanted->items = {kModified}; }},
    {.title = "rename the item",
     .make =
         [](Trial& t) {
           return quillkit::RenameMenuItem(t.key, kItem.name, MakeItem(kRenamed).get(), 1);
         },
     .after = [](Trial& t) { t.wanted->items = {kRenamed}; }},
    {.title = "write the key",
     .make = [](Trial& t) { return quillkit::ModifyKey(t.book, t.Named().get(), 1); }},
    {.title = "rename the key",
     .make = [](Trial& t) { return quillkit::RenameSoftKey(t.book, t.name, t.Renamed().get()); },
     .after = [](Trial& t) { t.wanted->name = t.newName; },
     .creates = &Trial::newName},
    {.title = "delete the item",
     .make = [](Trial& t) { return quillkit::DeleteMenuItem(t.key, kRenamed.name, 1); },
     .after = [](Trial& t) { t.wanted->items.clear(); }},
    {.title = "delete the key",
     .make = [](Trial& t) { return quillkit::DeleteKey(t.book, t.newName, 1); },
     .after = [](Trial& t) { t.wanted.reset(); }},
};

std::string TakeName(Checkup& checkup, Trial& trial) {
  checkup.Keys();
  checkup.DeferTermination();
  checkup.RequireTime();
  checkup.RequireSameKeys();
  if (checkup.Keys().size() >= kMostKeys) throw Skip("there is no room for one more key");
  trial.book = checkup.OpenSession().Book();
  trial.name = FreeName(trial.book);
  trial.newName = FreeName(trial.book, trial.name);
  RequireUnknown(trial.book, trial.name);
  RequireUnknown(trial.book, trial.newName);
  trial.isGood = true;
  return Quoted(trial.name);
}

// Requires that of the keys found ours is what the changes made of it, and the others as they were.
void RequireWanted(const Checkup& checkup, const Trial& trial, KeySet found, const char* where) {
  const auto ours = std::stable_partition(found.begin(), found.end(), [&](const KeyFields& key) {
    return key.name != trial.name && key.name != trial.newName;
  });
  if (KeySet(ours, found.end()) != (trial.wanted ? KeySet{*trial.wanted} : KeySet{})) {
    throw Refusal(std::string("done, but it is not so ") + where);
  }
  found.erase(ours, found.end());
  if (found != checkup.Keys()) {
    throw Refusal(std::string("done, but another key is not as it was ") + where);
  }
}

std::string Make(Checkup& checkup, Trial& trial, const Change& change) {
  const Session& session = checkup.OpenSession();
  checkup.RequireTime();
  if (!trial.isGood) throw Skip("a step before it was not good");
  trial.isGood = false;
  trial.key = trial.wanted ? FindKey(trial.book, trial.wanted->name) : nullptr;
  const std::int32_t status = change.make(trial);
  // A key that has the name already is somebody else's; after any other failure it may be ours.
  if (change.creates != nullptr && status != quillkit::kNameConflict) {
    trial.ours.push_back(trial.*change.creates);
  }
  RequireCode(status, change.expected);
  change.after(trial);
  if (change.creates == nullptr) RequireWanted(checkup, trial, KeysIn(trial.book), "in memory");
  RequireWanted(checkup, trial, ReadKeySet(session), "on the server");
  trial.isGood = true;
  return {};
}

// Deletes the key, whether the server lists it or not; where that fails, in a session anew.
void RequireGone(Checkup& checkup, const std::string& name) {
  const auto isGone = [](std::int32_t status) {
    return status == 0 || status == quillkit::kNoSuchBook;
  };
  Session& session = checkup.OpenSession();
  if (isGone(quillkit::DeleteKey(session.Book(), name, 0))) return;
  session.LogIn();
  const std::int32_t status = quillkit::DeleteKey(session.Book(), name, 0);
  if (!isGone(status)) throw Refusal(CodeAndText(status));
}

// Adds to a text that tells of names of ours.
void Tell(std::string& left, const std::string& name, const std::string& how) {
  left += (left.empty() ? "" : "; ") + Quoted(name) + how;
}

// What the server has, when our key is to be gone.
KeySet ReadWithoutOurs(const Session& session, const Trial& trial) {
  try {
    return ReadKeySet(session);
  } catch (const Refusal& why) {
    std::string left;
    for (const std::string& name : trial.ours) Tell(left, name, " may be left behind");
    throw Refusal(left + "; " + why.what());
  }
}

// Deletes what may be there under our names.
void DeleteOurs(Checkup& checkup, const Trial& trial) {
  std::string left;
  for (const std::string& name : trial.ours) {
    try {
      RequireGone(checkup, name);
    } catch (const std::exception& error) {
      Tell(left, name, std::string(" may be left behind: ") + error.what());
    }
  }
  if (!left.empty()) throw Refusal(left);
}

// Requires that none of the keys has a name of ours.
void RequireNoneOfOurs(const KeySet& keys, const Trial& trial) {
  std::string left;
  for (const std::string& name : trial.ours) {
    const bool isThere = std::ranges::count(keys, name, &KeyFields::name) != 0;
    if (isThere) Tell(left, name, " is left behind");
  }
  if (!left.empty()) throw Refusal(left);
}

std::string CleanUp(Checkup& checkup, const Trial& trial) {
  if (trial.ours.empty()) throw Skip("nothing was added");
  const bool isDeleted = trial.isGood && !trial.wanted;
  if (!isDeleted) DeleteOurs(checkup, trial);
  const KeySet now = ReadWithoutOurs(checkup.OpenSession(), trial);
  RequireNoneOfOurs(now, trial);
  checkup.RequireSame(now);
  return "the keys are those of before";
}

}  // namespace

std::vector<Step> ChangingSteps() {
  const auto trial = std::make_shared<Trial>();
  std::vector<Step> steps = {
      {"a name for a key", [trial](Checkup& c) { return TakeName(c, *trial); }}};
  for (const Change& each : kChanges) {
    steps.push_back({each.title, [trial, &each](Checkup& c) { return Make(c, *trial, each); }});
  }
  steps.push_back({"clean up", [trial](Checkup& c) { return CleanUp(c, *trial); }});
  return steps;
}

}  // namespace quillctl
