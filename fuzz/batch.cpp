// Import scripts that the simulated appliance runs. The input: 0 for the administrator's script or
// 1 for that of another user, a newline, and the script.

#include "simulator/batch.h"

#include <string>
#include <utility>
#include <vector>

#include "fuzz/input.h"
#include "tests/support/scratch_folder.h"

namespace quillkit {

using namespace quillbox;

namespace {

constexpr std::string_view kAccounts[] = {kAdministratorName, kToolkitName, "GUEST"};

// Checks each record of a store. Returns the content of all books.
std::string Content(const Store& store) {
  std::string content;
  store.ForEachBook([&](const BookPath& path, const Book& book) {
    const BookType& type = *TypeOf(path.kind);
    content += std::to_string(book.Size()) + ' ';
    for (const auto& [name, stored] : book) {
      const std::string record = stored.Bytes();
      Require(record.size() == type.recordSize, "a record has the size that its book requires");
      Require(IsStorable(type, record.data()), "the texts of a record end inside their fields");
      Require(NameOf(record.data()) == name, "a record is stored under its name");
      content += record;
    }
  });
  return content;
}

void CheckBatch(std::string_view user, const std::string& script) {
  static const ScratchFolder folder;
  const std::string path = folder.Write("script", script);
  Store store;
  const Status status = RunBatch(store, Limits(), user, path.c_str());
  Require(status == kNoError || status == kInvalidField || status == kBadCommand,
          "the status is a documented one");
  const std::string content = Content(store);
  for (const std::string_view account : kAccounts) {
    Require(store.Find({BookKind::kUsers, {}, {}})->Find(EntryKey(account)) != nullptr,
            "the three fixed accounts remain");
  }
  Require(RunBatch(store, Limits(), user, path.c_str()) == status && Content(store) == content,
          "a second run has the same result");
}

}  // namespace
}  // namespace quillkit

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  quillkit::Input input(data, size);
  const bool isAdmin = input.TakeBelow(2) == 0;
  input.TakeChar();
  quillkit::CheckBatch(isAdmin ? quillkit::kAdministratorName : "Eve", std::string(input.Rest()));
  return 0;
}
