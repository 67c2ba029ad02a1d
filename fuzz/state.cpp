// State files of the simulated appliance. The input is the file.

#include <string>

#include "fuzz/input.h"
#include "fuzz/stored_content.h"
#include "simulator/state_file.h"
#include "simulator/state_text.h"
#include "tests/support/email_entry.h"
#include "tests/support/scratch_folder.h"

namespace quillkit {

using namespace quillbox;

namespace {

void CheckContents(Contents& contents) {
  CheckedContent(contents.store);
  for (auto& [name, backup] : contents.backups) CheckedContent(backup);
}

// A file that another process changes, and that this one opens after that.
void CheckSharing(const std::string& path, const Contents& read) {
  const CEmailEntry added = MakeEntry("added");
  Contents mine;
  Contents others;
  StateFile file;
  StateFile other;
  Require(file.Open(path, mine).empty(), "a file that can be read can be opened");
  Require(StateText(mine) == StateText(read), "an opened file has the contents that were read");
  Require(other.Open(path, others).empty() && other.Begin(others).empty(),
          "two processes can open a file");
  others.store.Put({BookKind::kEmail, {}, {}}, &added);
  Require(other.End(others).empty(), "a change can be written");
  Require(file.Begin(mine).empty() && StateText(mine) == StateText(others),
          "a process has the changes of another one");
  Require(file.End(mine).empty() && file.Close(mine).empty(), "a file can be closed");
  Contents again;
  Require(ReadStateFile(path, again).empty() && StateText(again) == StateText(others),
          "a closed file contains all changes");
}

void CheckState(const std::string& text) {
  static const ScratchFolder folder;
  Contents contents;
  const bool isRead = ReadState(text, contents).empty();
  const std::string path = folder.Write("state", text);
  if (!isRead) {
    Contents kept;
    StateFile file;
    Require(!file.Open(path, kept).empty(), "a file that cannot be read is not opened");
    Require(ReadBytes(path) == text, "a damaged file is not overwritten");
    Require(StateText(kept) == StateText({}), "a damaged file changes nothing");
    return;
  }
  CheckContents(contents);
  Contents again;
  const std::string stored = StateText(contents);
  Require(ReadState(stored, again).empty() && StateText(again) == stored,
          "what was stored can be read");
  CheckSharing(path, contents);
}

}  // namespace
}  // namespace quillkit

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  quillkit::CheckState(std::string(reinterpret_cast<const char*>(data), size));
  return 0;
}
