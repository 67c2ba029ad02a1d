#include "examples/key_set_commands.h"

#include <fstream>
#include <iostream>
#include <iterator>
#include <string_view>

#include "examples/displayed_text.h"
#include "examples/failures.h"
#include "examples/key_commands.h"
#include "examples/key_set_difference.h"
#include "examples/key_set_json.h"

namespace quillctl {
namespace {

std::string ReadFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  if (!file.is_open() || file.bad()) throw UsageError("the file of keys cannot be read");
  return bytes;
}

bool AskForConsent() {
  std::cout << "Make these changes? [y/N] " << std::flush;
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
  KeySetWriter writer(session);
  for (std::size_t i = 0; i < changes.size(); ++i) {
    const std::int32_t status = writer.Make(changes[i]);
    if (status == 0) continue;
    throw Refusal("this change failed: " + Described(changes[i]) + ": " + CodeAndText(status) +
                  "; of " + std::to_string(changes.size()) + " changes " + std::to_string(i) +
                  " were made");
  }
}

}  // namespace

void ExportKeys(const Session& session, const std::string& path) {
  const std::string json = JsonOf(ReadKeySet(session));
  if (path.empty()) {
    std::cout << json;
    return;
  }
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file << json;
  file.close();
  if (!file) throw Refusal("the file cannot be written");
  std::cout << "Wrote the keys.\n";
}

void ApplyKeys(const Session& session, const std::string& path, Consent consent) {
  const KeySet wanted = ParseKeySet(ReadFile(path));
  const std::vector<KeySetChange> changes = Difference(ReadKeySet(session), wanted);
  if (changes.empty()) {
    std::cout << "The appliance has these keys and items already.\n";
    return;
  }
  for (const KeySetChange& change : changes) std::cout << Described(change) << '\n';
  if (consent == Consent::kDryRun) return;
  if (consent == Consent::kAsk && !AskForConsent()) throw Refusal("nothing was changed");
  Make(session, changes);
  if (!Difference(ReadKeySet(session), wanted).empty()) {
    throw Refusal("the appliance accepted all changes, but does not have what the file tells");
  }
  std::cout << "Made " << changes.size() << (changes.size() == 1 ? " change.\n" : " changes.\n");
}

}  // namespace quillctl
