#include "simulator/state_file.h"

#include <filesystem>
#include <fstream>
#include <system_error>
#include <utility>

#include "simulator/complaint.h"
#include "simulator/environment.h"

namespace quillkit {
namespace {

bool WriteFile(const std::string& path, const Contents& contents) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  WriteState(file, contents);
  file.close();
  return file.good();
}

}  // namespace

void StateFile::Open(const std::string& path, Contents& contents) {
  std::error_code failure;
  const std::filesystem::file_status found = std::filesystem::status(path, failure);
  if (found.type() == std::filesystem::file_type::not_found) {
    path_ = path;
    contents.store.TakeChange();
    Save(contents);
    return;
  }
  if (std::filesystem::is_other(found)) {
    Complain(kStateVariable, "this is no file; the books are as delivered, and nothing is kept");
    return;
  }
  TextLines lines(path.c_str());
  Contents read;
  const std::string fault = ReadState(lines, read);
  if (!fault.empty()) {
    Complain(kStateVariable, fault + "; the books are as delivered, and nothing is kept");
    return;
  }
  path_ = path;
  contents = std::move(read);
  contents.store.TakeChange();
}

void StateFile::Save(const Contents& contents) const {
  const std::string fresh = path_ + ".new";
  std::error_code failure;
  if (WriteFile(fresh, contents)) {
    std::filesystem::rename(fresh, path_, failure);
    if (!failure) return;
  }
  std::filesystem::remove(fresh, failure);
  Complain(kStateVariable, "the file cannot be written; its state is an earlier one");
}

}  // namespace quillkit
