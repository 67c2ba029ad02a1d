#include "quillctl/key_set_commands.h"

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

// More than the largest key set takes, however it is written.
constexpr std::size_t kMostBytes = std::size_t{32} << 20;

bool AskForConsent() {
  std::cout << "Make these changes? [y/N] " << std::flush;
  if (!std::cout) throw Refusal("cannot show what would change");
  std::string answer;
  std::getline(std::cin, answer);
  std::cout << '\n';
  return answer == "y" || answer == "yes" || answer == "y\r" || answer == "yes\r";
}

// Makes changes on the server; memory follows when the next key is added.
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
        Refresh();  // the library counts the keys in memory
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
  bool isStale = false;  // whether the keys in memory are not those of the server
};

void Make(const Session& session, const std::vector<KeySetChange>& changes) {
  const DeferredTermination termination;
  KeySetWriter writer(session);
  for (std::size_t i = 0; i < changes.size(); ++i) {
    try {
      if (termination.IsRequested()) throw Refusal("interrupted before it");
      RequireCode(writer.Make(changes[i]), 0);
    } catch (const Refusal& why) {
      throw Refusal("this change failed: " + Described(changes[i]) + ": " + why.what() + "; of " +
                    std::to_string(changes.size()) + " changes the " + std::to_string(i) +
                    " before it were made and the " + std::to_string(changes.size() - i - 1) +
                    " behind it were not; to go on, apply the file again");
    }
  }
}

// Whether the appliance has what was made, as far as it can be read.
void RequireMade(const Session& session, const KeySet& wanted) {
  std::vector<KeySetChange> open;
  try {
    open = Difference(ReadKeySet(session), wanted);
  } catch (const Refusal& why) {
    throw Refusal(std::string("the appliance accepted all changes, and they cannot be read: ") +
                  why.what());
  }
  if (open.empty()) return;
  throw Refusal("the appliance accepted all changes, and yet this is to do: " +
                Described(open.front()));
}

// Writes the keys and their items as JSON (key_set_json.h) to a file, or to standard output for an
// empty path. Throws a Refusal, with nothing written, when they cannot be read whole.
void ExportKeys(const Session& session, const std::string& path) {
  const std::string json = JsonOf(ReadKeySet(session));
  if (path.empty()) {
    std::cout << json;
    return;
  }
  WriteTextFile(path, json);
  std::cout << "Wrote the keys.\n";
}

enum class Consent { kAsk, kGiven, kDryRun };

// Logs in, shows what differs between the appliance and the file, and, once somebody said yes,
// makes the appliance's keys those of the file. Throws a UsageError for a file that is not
// understood, with nothing asked of the appliance, and a Refusal when nobody said yes, when a
// change fails or the user interrupts them, which tells how many were made before, and when the
// appliance then does not have what the file tells.
void ApplyKeys(const Credentials& credentials, const std::string& path, Consent consent) {
  const KeySet wanted = ParseKeySet(ReadTextFile(path, kMostBytes));
  const Session session(credentials);
  const std::vector<KeySetChange> changes = Difference(ReadKeySet(session), wanted);
  if (changes.empty()) {
    std::cout << "The appliance has these keys and items already.\n";
    return;
  }
  for (const KeySetChange& change : changes) std::cout << Described(change) << '\n';
  if (consent == Consent::kDryRun) return;
  if (consent == Consent::kAsk && !AskForConsent()) throw Refusal("nothing was changed");
  Make(session, changes);
  RequireMade(session, wanted);
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
  save->add_option("file", a->file, "The file, else the standard output")->type_name("FILE");

  CLI::App* apply = commands.AddOffline("apply", "Make the keys those of a file of export",
                                        [a](const Credentials& c) {
                                          ApplyKeys(c, a->file,
                                                    a->dryRun ? Consent::kDryRun
                                                    : a->yes  ? Consent::kGiven
                                                              : Consent::kAsk);
                                        });
  apply->add_option("file", a->file, "The file")->required()->type_name("FILE");
  auto* yes = apply->add_flag("--yes", a->yes, "Do not ask");
  apply->add_flag("--dry-run", a->dryRun, "Show what differs, and change nothing")->excludes(yes);
}

}  // namespace quillctl
