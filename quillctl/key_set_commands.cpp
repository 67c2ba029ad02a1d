// `quillctl export` and `quillctl apply`: save an appliance's key set to a file, and restore it.

#include <iostream>
#include <memory>

#include "quillctl/commands.h"
#include "quillctl/displayed_text.h"
#include "quillctl/failures.h"
#include "quillctl/key_set.h"
#include "quillctl/key_set_json.h"
#include "quillctl/system/deferred_termination.h"
#include "quillctl/text_file.h"

namespace quillctl {
namespace {

// The maximum size of a key set's file. No valid key set needs that much.
constexpr std::size_t kMaxFileSize = std::size_t{32} << 20;

bool AskForConfirmation() {
  std::cout << "Make these changes? [y/N] " << std::flush;
  if (!std::cout) throw Refusal("cannot print the changes; nothing was changed");
  std::string answer;
  std::getline(std::cin, answer);
  std::cout << '\n';
  return answer == "y" || answer == "yes" || answer == "y\r" || answer == "yes\r";
}

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

void Make(const Session& session, const std::vector<KeySetChange>& changes) {
  const DeferredTermination termination;
  KeySetWriter writer(session);
  for (std::size_t i = 0; i < changes.size(); ++i) {
    try {
      if (termination.IsRequested()) throw Refusal("interrupted");
      RequireStatus(writer.Make(changes[i]), 0);
    } catch (const Refusal& why) {
      throw Refusal("cannot make the change: " + Described(changes[i]) + ": " + why.what() + "; " +
                    std::to_string(i) + " of " + std::to_string(changes.size()) +
                    " changes were made; to continue, apply the file again");
    }
  }
}

// Reads the keys and throws a Refusal unless they are the wanted ones.
void RequireApplied(const Session& session, const KeySet& wanted) {
  std::vector<KeySetChange> missing;
  try {
    missing = Difference(ReadKeySet(session), wanted);
  } catch (const Refusal& why) {
    throw Refusal(std::string("the appliance accepted all changes, but they cannot be read: ") +
                  why.what());
  }
  if (missing.empty()) return;
  throw Refusal("the appliance accepted all changes, but did not make this one: " +
                Described(missing.front()));
}

// Writes the keys and their items as JSON (key_set_json.h) to a file, or to standard output if
// `path` is empty. Throws a Refusal and writes nothing if a key or an item cannot be read.
void ExportKeys(const Session& session, const std::string& path) {
  const std::string json = JsonOf(ReadKeySet(session));
  if (path.empty()) {
    std::cout << json;
    return;
  }
  WriteTextFile(path, json);
  std::cout << "Exported the keys to " << Quoted(path) << ".\n";
}

enum class Confirmation { kAsk, kGiven, kDryRun };

KeySet ReadKeyFile(const std::string& path) {
  const std::string json = ReadTextFile(path, kMaxFileSize);
  try {
    return ParseKeySet(json);
  } catch (const UsageError& error) {
    throw UsageError(Quoted(path) + " is not a valid key file: " + error.what());
  }
}

// Reads the file, logs in and prints the differences. After confirmation, makes the appliance's
// keys those of the file. Throws a UsageError for an invalid file, without a server call. Throws a
// Refusal if the user does not confirm; if a change fails or is interrupted, with the number of
// changes that were made; and if the appliance's keys then still differ.
void ApplyKeys(const Credentials& credentials, const std::string& path, Confirmation confirmation) {
  const KeySet wanted = ReadKeyFile(path);
  const Session session(credentials);
  const std::vector<KeySetChange> changes = Difference(ReadKeySet(session), wanted);
  if (changes.empty()) {
    std::cout << "Nothing to change: the appliance already has these keys and items.\n";
    return;
  }
  for (const KeySetChange& change : changes) std::cout << Described(change) << '\n';
  if (confirmation == Confirmation::kDryRun) return;
  if (confirmation == Confirmation::kAsk && !AskForConfirmation())
    throw Refusal("not confirmed; nothing was changed");
  Make(session, changes);
  RequireApplied(session, wanted);
  std::cout << "Made " << changes.size() << (changes.size() == 1 ? " change.\n" : " changes.\n");
}

}  // namespace

void AddKeySetCommands(Commands& commands) {
  struct Arguments {
    std::string file;
    bool yes = false;
    bool dryRun = false;
  };
  const auto a = std::make_shared<Arguments>();
  CLI::App* save = commands.Add("export", "Write all keys and items as JSON",
                                [a](Session& s) { ExportKeys(s, a->file); });
  save->add_option("file", a->file, "The file (default: standard output)")->type_name("FILE");

  CLI::App* apply = commands.AddWithoutLogin(
      "apply", "Replace all keys and items with those in a file", [a](const Credentials& c) {
        ApplyKeys(c, a->file,
                  a->dryRun ? Confirmation::kDryRun
                  : a->yes  ? Confirmation::kGiven
                            : Confirmation::kAsk);
      });
  apply->add_option("file", a->file, "A file written by export")->required()->type_name("FILE");
  auto* yes = apply->add_flag("--yes", a->yes, "Do not ask for confirmation");
  apply->add_flag("--dry-run", a->dryRun, "Print the differences, without changing anything")
      ->excludes(yes);
}

}  // namespace quillctl
