#include <memory>
#include <utility>

#include "examples/checkup.h"
#include "examples/displayed_text.h"
#include "examples/failures.h"
#include "examples/key_commands.h"

namespace quillctl {
namespace {

constexpr std::int32_t kNameConflict = 14;

const ItemFields kItem = {"Item", "192.0.2.1", "/first", "quillctl", 1, 0x10002};
const ItemFields kModified = {"Item", "192.0.2.2", "/second", "check", 3, 0x20031};
const ItemFields kRenamed = {"Renamed", "192.0.2.2", "/second", "check", 3, 0x20031};

// The key that the changes are tried with.
struct Trial {
  std::string name;
  std::string newName;
  std::vector<std::string> ours;    // of the two, those that a key of ours may have
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
  std::int32_t (*plain)(Trial&) = nullptr;
  bool (*fast)(Trial&) = nullptr;         // whether it went well
  void (*after)(Trial&) = [](Trial&) {};  // what it makes of the wanted key
  std::string Trial::*creates = nullptr;  // the name that the key then has for the first time
};

// In memory, RenameSoftKey leaves the old name.
std::int32_t RenameAndLoad(Trial& t) {
  const std::int32_t status = quillkit::RenameSoftKey(t.book, t.name, t.Renamed().get());
  return status != 0 ? status : quillkit::LoadTopLevelAbook(t.book, 1);
}

std::int32_t PlainAdd(Trial& t) {
  return quillkit::AddKey(t.book, t.name, 1);
}

bool FastAdd(Trial& t) {
  return quillkit::FastKeyAdd(t.book, t.Named().get()) >= 0;
}

constexpr Change kChanges[] = {
    {.title = "add a key",
     .plain = PlainAdd,
     .fast = FastAdd,
     .after =
         [](Trial& t) {
           t.wanted.emplace(KeyFields{t.name, {}});
         },
     .creates = &Trial::name},
    {.title = "add it again, which is refused",
     .expected = kNameConflict,
     .plain = PlainAdd,
     .fast = FastAdd},
    {.title = "add an item",
     .plain = [](Trial& t) { return quillkit::AddMenuItem(t.key, MakeItem(kItem).get(), 1); },
     .fast = [](Trial& t) { return quillkit::FastItemAdd(t.key, MakeItem(kItem).get()) >= 0; },
     .after = [](Trial& t) { t.wanted->items = {kItem}; }},
    {.title = "modify the item",
     .plain =
         [](Trial& t) { return quillkit::ModifyMenuItem(t.key, MakeItem(kModified).get(), 1); },
     .fast =
         [](Trial& t) { return quillkit::FastItemModify(t.key, MakeItem(kModified).get()) != 0; },
     .after = [](Trial& t) { t.wanted->items = {kModified}; }},
    {.title = "rename the item",
     .plain =
         [](Trial& t) {
           return quillkit::RenameMenuItem(t.key, kItem.name, MakeItem(kRenamed).get(), 1);
         },
     .fast =
         [](Trial& t) {
           return quillkit::FastItemRename(t.key, kItem.name, MakeItem(kRenamed).get()) != 0;
         },
     .after = [](Trial& t) { t.wanted->items = {kRenamed}; }},
    {.title = "write the key",
     .plain = [](Trial& t) { return quillkit::ModifyKey(t.book, t.Named().get(), 1); },
     .fast = [](Trial& t) { return quillkit::FastKeyModify(t.book, t.key) != 0; }},
    {.title = "rename the key",
     .plain = RenameAndLoad,
     .fast =
         [](Trial& t) { return quillkit::FastKeyRename(t.book, t.name, t.Renamed().get()) != 0; },
     .after = [](Trial& t) { t.wanted->name = t.newName; },
     .creates = &Trial::newName},
    {.title = "delete the item",
     .plain = [](Trial& t) { return quillkit::DeleteMenuItem(t.key, kRenamed.name, 1); },
     .fast =
         [](Trial& t) { return quillkit::FastItemRemove(t.key, MakeItem(kRenamed).get()) >= 0; },
     .after = [](Trial& t) { t.wanted->items.clear(); }},
    {.title = "delete the key",
     .plain = [](Trial& t) { return quillkit::DeleteKey(t.book, t.newName, 1); },
     .fast = [](Trial& t) { return quillkit::FastKeyRemove(t.book, t.Renamed().get()) >= 0; },
     .after = [](Trial& t) { t.wanted.reset(); }},
};

std::string TakeName(Checkup& checkup, Trial& trial) {
  checkup.keys();
  checkup.DeferEnding();
  checkup.RequireTime();
  trial.book = checkup.session().LoadKeys(true);
  if (std::cmp_greater_equal(quillkit::GetCount(trial.book), kMostKeys))
    throw Skip("there is no room for one more key");
  trial.name = FreeName(trial.book);
  trial.newName = FreeName(trial.book, trial.name);
  trial.isGood = true;
  return Quoted(trial.name);
}

// Requires that the key in memory is what the changes made of it.
void RequireWanted(const Trial& trial, const char* where) {
  std::vector<KeyFields> found;
  for (const std::string& name : {trial.name, trial.newName}) {
    const std::int32_t index = quillkit::FindSoftKeyIndex(trial.book, name);
    if (index >= 0) found.push_back({name, ItemsOf(quillkit::GetKeyAt(trial.book, index))});
  }
  const auto wanted = trial.wanted ? KeySet{*trial.wanted} : KeySet{};
  if (found != wanted) throw Refusal(std::string("done, but it is not so ") + where);
}

// The server's status. A Fast function also fails when the server was good and memory did not
// follow, which a look at memory tells.
std::int32_t StatusOf(const Change& change, Trial& trial, bool isFast) {
  if (!isFast) return change.plain(trial);
  return change.fast(trial) ? 0 : quillkit::GetLastToolkitError();
}

std::string Make(Checkup& checkup, Trial& trial, const Change& change, bool isFast) {
  const Session& session = checkup.session();
  checkup.RequireTime();
  if (!trial.isGood) throw Skip("a step before it was not good");
  trial.isGood = false;
  trial.key = trial.wanted ? FindKey(trial.book, trial.wanted->name) : nullptr;
  const std::int32_t status = StatusOf(change, trial, isFast);
  // A key that has the name already is somebody else's; after any other failure it may be ours.
  if (change.creates != nullptr && status != kNameConflict) {
    trial.ours.push_back(trial.*change.creates);
  }
  RequireCode(status, change.expected);
  change.after(trial);
  RequireWanted(trial, "in memory");
  session.LoadKeys(true);
  RequireWanted(trial, "on the server");
  trial.isGood = true;
  return {};
}

// The keys anew; where that fails, in a session anew.
quillkit::CTopLevelAB* LoadKeysSomehow(Session& session) {
  try {
    return session.LoadKeys(false);
  } catch (const Refusal&) {
    session.LogIn();
    return session.LoadKeys(false);
  }
}

// Whether this key is gone, and if not, why.
void RequireGone(Session& session, const std::string& name) {
  quillkit::CTopLevelAB* book = LoadKeysSomehow(session);
  if (quillkit::FindSoftKeyIndex(book, name) < 0) return;
  RequireCode(quillkit::DeleteKey(book, name, 1), 0);
  if (quillkit::FindSoftKeyIndex(book, name) >= 0) throw Refusal("it was deleted, and is there");
}

std::string CleanUp(Checkup& checkup, const Trial& trial) {
  if (trial.ours.empty()) throw Skip("nothing was added");
  std::string left;
  for (const std::string& name : trial.ours) {
    try {
      RequireGone(checkup.session(), name);
    } catch (const std::exception& error) {
      left += (left.empty() ? "" : "; ") + Quoted(name) + " may be left behind: " + error.what();
    }
  }
  if (!left.empty()) throw Refusal(left);
  checkup.RequireSameKeys();
  return "the keys are those of before";
}

}  // namespace

std::vector<Step> ChangingSteps() {
  std::vector<Step> steps;
  for (const bool isFast : {false, true}) {
    const std::string form = isFast ? "Fast: " : "plain: ";
    const auto trial = std::make_shared<Trial>();
    steps.push_back(
        {form + "a name for a key", [trial](Checkup& c) { return TakeName(c, *trial); }});
    for (const Change& each : kChanges) {
      steps.push_back({form + each.title, [trial, &each, isFast](Checkup& c) {
                         return Make(c, *trial, each, isFast);
                       }});
    }
    steps.push_back({form + "clean up", [trial](Checkup& c) { return CleanUp(c, *trial); }});
  }
  return steps;
}

}  // namespace quillctl
