#include "quillctl/key_set_commands.h"

#include <iostream>

#include "quillctl/displayed_text.h"
#include "quillctl/failures.h"
#include "quillctl/key_commands.h"
#include "quillctl/key_set_difference.h"
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
  explicit KeySetWriter(const Session& session)
      : session_(session), book_(session.LoadKeys(true)) {}

  std::int32_t Make(const KeySetChange& change) {
    switch (change.kind) {
      case KeySetChange::kDeleteItem:
        return quillkit::DeleteMenuItem(KeyOf(change), change.item.name, 0);
      case KeySetChange::kDeleteKey:
        isStale_ = true;
        return quillkit::DeleteKey(book_, change.key, 0);
      case KeySetChange::kChangeItem:
        return quillkit::ModifyMenuItem(KeyOf(change), MakeItem(change.item).get(), 0);
      case KeySetChange::kAddKey:
        Refresh();  // the library counts the keys in memory
        isStale_ = true;
        return quillkit::AddKey(book_, change.key, 0);
      case KeySetChange::kAddItem:
        return quillkit::AddMenuItem(KeyOf(change), MakeItem(change.item).get(), 0);
    }
    return 0;
  }

 private:
  quillkit::CSoftKey* KeyOf(const KeySetChange& change) {
    Refresh();
    return FindKey(book_, change.key);
  }

  void Refresh() {
    if (isStale_) book_ = session_.LoadKeys(true);
    isStale_ = false;
  }

  const Session& session_;
  quillkit::CTopLevelAB* book_;
  bool isStale_ = false;  // whether the keys in memory are not those of the server
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

}  // namespace

void ExportKeys(const Session& session, const std::string& path) {
  const std::string json = JsonOf(ReadKeySet(session));
  if (path.empty()) {
    std::cout << json;
    return;
  }
  WriteTextFile(path, json);
  std::cout << "Wrote the keys.\n";
}

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

}  // namespace quillctl
