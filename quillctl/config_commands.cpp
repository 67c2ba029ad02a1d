// `quillctl config`: saves the keys and items of an appliance to a file, compares them with it, and
// restores them from it.

#include <cstdlib>
#include <iostream>
#include <string>

#include "console/confirmation.h"
#include "console/displayed_text.h"
#include "console/json_output.h"
#include "console/options.h"
#include "console/progress.h"
#include "console/system/deferred_termination.h"
#include "console/system/terminal.h"
#include "console/text_file.h"
#include "quillctl/commands.h"
#include "quillctl/failures.h"
#include "quillctl/key_set.h"
#include "quillctl/key_set_json.h"

namespace quillctl {
namespace {

// The maximum size of a key set's file. No valid key set needs that much.
constexpr std::size_t kMaxFileSize = std::size_t{32} << 20;

// Makes changes on the server. Reads the keys into memory again only when they are needed.
class KeySetWriter {
 public:
  explicit KeySetWriter(const Session& openSession)
      : session(openSession), book(openSession.LoadKeys(true)) {}

  std::int32_t Make(const KeySetChange& change) {
    switch (change.kind) {
      case KeySetChange::kDeleteItem:
        return quillkit::DeleteMenuItem(KeyOf(change), change.item.name, 0);
      case KeySetChange::kDeleteKey:
        isStale = true;
        return quillkit::DeleteKey(book, change.key, 0);
      case KeySetChange::kChangeItem:
        return quillkit::ModifyMenuItem(KeyOf(change), MakeItem(change.item).get(), 0);
      case KeySetChange::kAddKey:
        Refresh();  // the library checks the number of keys in memory
        isStale = true;
        return quillkit::AddKey(book, change.key, 0);
      case KeySetChange::kAddItem:
        return quillkit::AddMenuItem(KeyOf(change), MakeItem(change.item).get(), 0);
    }
    return 0;
  }

 private:
  quillkit::CSoftKey* KeyOf(const KeySetChange& change) {
    Refresh();
    return FindKey(book, change.key);
  }

  void Refresh() {
    if (isStale) book = session.LoadKeys(true);
    isStale = false;
  }

  const Session& session;
  quillkit::CTopLevelAB* book;
  bool isStale = false;  // whether the keys in memory differ from those on the server
};

// Throws a Refusal if the first change fails, a PartialFailure if a later one fails or the user
// interrupts, and an UnknownResult if a reply was lost.
void Make(const Session& session, const std::vector<KeySetChange>& changes) {
  const console::DeferredTermination termination("stopping after the current change");
  KeySetWriter writer(session);
  console::Progress progress("Making changes", [&changes] { return changes.size(); });
  for (std::size_t i = 0; i < changes.size(); ++i) {
    progress.Step();
    const std::string rest = "; " + std::to_string(i) + " of " + std::to_string(changes.size()) +
                             " changes were made; to continue, apply the file again";
    const std::string what = "make the change: " + Described(changes[i]);
    try {
      if (termination.IsRequested()) throw Refusal("cannot " + what + ": interrupted");
      RequireChange(writer.Make(changes[i]), what);
    } catch (const UnknownResult& why) {
      throw UnknownResult(why.what() + rest);
    } catch (const Refusal& why) {
      if (i == 0 && !termination.IsRequested()) throw Refusal(why.what() + rest);
      throw PartialFailure(why.what() + rest);
    }
  }
}

// Reads the keys. Throws a PartialFailure unless they are the wanted ones, and an UnknownResult if
// they cannot be read.
void RequireApplied(const Session& session, const KeySet& wanted) {
  const std::vector<KeySetChange> missing =
      ReadBack("the appliance accepted all changes, but they cannot be read",
               [&] { return Difference(ReadKeySet(session), wanted); });
  if (missing.empty()) return;
  throw PartialFailure("the appliance accepted all changes, but did not make this one: " +
                       Described(missing.front()));
}

struct Arguments {
  std::string file;
  console::Consent consent;
  bool json = false;
};

// Writes the keys and their items as JSON (key_set_json.h) to a file, or to standard output if
// its path is empty or "-". Throws a Refusal and writes nothing if a key or an item cannot be read.
void ExportKeys(const Session& session, const Arguments& a) {
  console::ConfirmOverwrite(a.consent.yes, a.file);
  if (console::WriteOutput(a.file, JsonOf(ReadKeySet(session)))) {
    std::cout << "Exported the keys to " << console::Quoted(a.file) << ".\n";
  }
}

KeySet ReadKeyFile(const std::string& path) {
  const std::string json = console::ReadTextFile(path, kMaxFileSize);
  try {
    return ParseKeySet(json);
  } catch (const UsageError& error) {
    throw UsageError(console::Quoted(path) + " is not a valid key file: " + error.what());
  }
}

// Returns an object with the kind of the change, its key and, for an item, its fields before and
// after the change.
console::Json ShownChange(const KeySetChange& change) {
  // In the order of KeySetChange::Kind.
  static constexpr const char* kKinds[] = {"delete-item", "delete-key", "change-item", "add-key",
                                           "add-item"};
  const bool isChanged = change.kind == KeySetChange::kChangeItem;
  console::Json json = {{"change", kKinds[change.kind]}};
  console::SetText(json, "key", change.key);
  if (isChanged) json["before"] = ShownItem(change.key, change.before);
  if (change.kind == KeySetChange::kDeleteItem) json["before"] = ShownItem(change.key, change.item);
  if (isChanged || change.kind == KeySetChange::kAddItem) {
    json["after"] = ShownItem(change.key, change.item);
  }
  return json;
}

// Returns the line of a change in a colour, if standard output is a terminal that shows colours,
// and the environment variable NO_COLOR is not set or empty.
std::string Coloured(const std::string& line) {
  const char* const unwanted = std::getenv("NO_COLOR");
  static const bool hasColours =
      (unwanted == nullptr || *unwanted == '\0') && console::StdoutHasColours();
  if (!hasColours) return line;
  const char* const colour = line[0] == '-' ? "31" : line[0] == '+' ? "32" : "33";
  return std::string("\x1B[") + colour + 'm' + line + "\x1B[0m";
}

// Prints the changes that make the appliance's keys the wanted ones, and returns them.
std::vector<KeySetChange> ShowChanges(const Session& session, const KeySet& wanted, bool json) {
  std::vector<KeySetChange> changes = Difference(ReadKeySet(session), wanted);
  if (json) {
    console::Json list = console::Json::array();
    for (const KeySetChange& change : changes) list.push_back(ShownChange(change));
    console::PrintJson(list);
    return changes;
  }
  for (const KeySetChange& change : changes) {
    std::cout << Coloured(Described(change)) << '\n';
  }
  return changes;
}

// Prints the differences between the appliance and the file. Throws a Differs if there are any, and
// a UsageError for an invalid file, without a server call.
void DiffKeys(const Credentials& credentials, const Arguments& a) {
  const KeySet wanted = ReadKeyFile(a.file);
  const Session session(credentials);
  if (ShowChanges(session, wanted, a.json).empty()) return;
  throw Differs("the keys and items of the appliance differ from those in " +
                console::Quoted(a.file));
}

// Prints the differences. After confirmation, makes the appliance's keys those of the file. Throws
// a UsageError as DiffKeys does; a Refusal if the user does not confirm; and what Make() and
// RequireApplied() throw.
void ApplyKeys(const Credentials& credentials, const Arguments& a) {
  const KeySet wanted = ReadKeyFile(a.file);
  const Session session(credentials);
  const std::vector<KeySetChange> changes = ShowChanges(session, wanted, false);
  if (changes.empty()) {
    std::cout << "Nothing to change: the appliance already has these keys and items.\n";
    return;
  }
  if (a.consent.dryRun) return;
  console::Confirm(a.consent.yes, "Make these changes?");
  Make(session, changes);
  RequireApplied(session, wanted);
  std::cout << "Made " << console::Counted(changes.size(), "change") << ".\n";
}

}  // namespace

void AddConfigCommands(Commands& commands) {
  constexpr const char* kFileHelp = "A file written by config export";
  Commands config =
      commands.AddGroup("config", "Save, compare and restore the soft keys with their items");
  const auto [save, saved] = config.Add("export", "Write all keys and items as JSON", ExportKeys);
  save->add_option("file", saved.file, "The file (default: standard output)")->type_name("FILE");
  console::AddYes(save, saved.consent.yes);

  const auto [diff, compared] =
      config.Add("diff", "Print how the appliance differs from a file", DiffKeys);
  diff->add_option("file", compared.file, kFileHelp)->required()->type_name("FILE");
  console::AddJson(diff, compared.json);

  const auto [apply, applied] =
      config.Add("apply", "Replace all keys and items with those in a file", ApplyKeys);
  apply->add_option("file", applied.file, kFileHelp)->required()->type_name("FILE");
  console::AddConsent(apply, applied.consent);
}

}  // namespace quillctl
