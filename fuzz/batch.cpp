// Import scripts, as the simulated appliance carries them out. The input: 0 for the administrator's
// or 1 for anybody else's, a newline, and the script.

#include "simulator/batch.h"

#include <string>
#include <utility>
#include <vector>

#include "fuzz/input.h"
#include "tests/support/scratch_folder.h"

namespace quillkit {

using namespace quillbox;

namespace {

constexpr std::string_view kUser = "Eve";
constexpr std::string_view kAccounts[] = {kAdministratorName, kToolkitName, "GUEST"};

// Everything that a store holds, once each record was looked at.
std::string Shown(const Store& store) {
  std::string shown;
  store.ForEachBook([&](const BookPath& path, const Book& book) {
    const BookType& type = *TypeOf(path.kind);
    shown += std::to_string(book.Size()) + ' ';
    for (std::size_t i = 0; i < book.Size(); ++i) {
      const auto& [name, record] = *book.At(i);
      Require(record.size() == type.recordSize, "a record has the size of its book's");
      Require(IsStorable(type, record.data()), "each text of a record ends inside its field");
      Require(NameOf(record.data()) == name, "a record stands under its name");
      shown.append(record.begin(), record.end());
    }
  });
  return shown;
}

void CheckBatch(std::string_view user, const std::string& script) {
  static const ScratchFolder folder;
  const std::string path = folder.Write("script", script);
  Store store;
  const Status status = RunBatch(store, user, path.c_str());
  Require(status == kNoError || status == kInvalidField || status == kBadCommand,
          "the status is one of the documented");
  const std::string shown = Shown(store);
  for (const std::string_view account : kAccounts) {
    Require(store.Find({BookKind::kUsers, {}, {}})->Find(EntryKey(account)) != nullptr,
            "the three accounts stay");
  }
  Require(RunBatch(store, user, path.c_str()) == status && Shown(store) == shown,
          "a script that is run again comes to the same");
}

}  // namespace
}  // namespace quillkit

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  quillkit::Input input(data, size);
  const bool isAdmin = input.TakeBelow(2) == 0;
  input.TakeChar();
  quillkit::CheckBatch(isAdmin ? quillkit::kAdministratorName : quillkit::kUser,
                       std::string(input.Rest()));
  return 0;
}
