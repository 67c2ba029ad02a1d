// Import scripts that the simulated appliance runs. The input: 0 for the administrator's script or
// 1 for that of another user, a newline, and the script.

#include "simulator/batch.h"

#include <string>

#include "fuzz/input.h"
#include "fuzz/stored_content.h"
#include "tests/support/scratch_folder.h"

namespace quillkit {

using namespace quillbox;

namespace {

void CheckBatch(std::string_view user, const std::string& script) {
  static const ScratchFolder folder;
  const std::string path = folder.Write("script", script);
  Store store;
  const Status status = RunBatch(store, Limits(), user, path.c_str());
  Require(status == kNoError || status == kInvalidField || status == kBadCommand,
          "the status is a documented one");
  const std::string content = CheckedContent(store);
  Require(
      RunBatch(store, Limits(), user, path.c_str()) == status && CheckedContent(store) == content,
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
