#include "simulator/state_file.h"

#include <filesystem>
#include <sstream>
#include <system_error>
#include <utility>

#include "platform/written_file.h"
#include "simulator/warning.h"

namespace quillbox {

void StateFile::Open(const std::string& path, Contents& contents) {
  std::error_code failure;
  const std::filesystem::file_status found = std::filesystem::status(path, failure);
  // The process may change its working folder.
  const std::string place = std::filesystem::absolute(path, failure).string();
  if (found.type() == std::filesystem::file_type::not_found) {
    keptPath = place;
    contents.store.ResetChanged();
    Save(contents);
    return;
  }
  Contents read;
  std::string fault = "not a file";
  if (!std::filesystem::is_other(found)) {
    TextLines lines(path.c_str());
    fault = ReadState(lines, read);
  }
  if (!fault.empty()) {
    Warn(kStateVariable, fault + "; starting with the initial books; changes will not be saved");
    return;
  }
  keptPath = place;
  contents = std::move(read);
  contents.store.ResetChanged();
}

void StateFile::Save(const Contents& contents) const {
  std::ostringstream text;
  WriteState(text, contents);
  if (WriteFileWhole(keptPath, text.view(), Readers::kOwner)) return;
  Warn(kStateVariable, "cannot write the file; it is unchanged");
}

}  // namespace quillbox
