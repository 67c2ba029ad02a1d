#include "examples/rejected_rows.h"

#include <filesystem>
#include <fstream>
#include <system_error>

#include "examples/failures.h"

namespace quillctl {
namespace {

namespace fs = std::filesystem;

void RequirePlace(const fs::path& path, const fs::path& imported, const fs::path& beside) {
  std::error_code failure;
  if (fs::equivalent(path, imported, failure)) {
    throw UsageError("--rejects names the file that is imported");
  }
  if (fs::exists(path, failure) && !fs::is_regular_file(path, failure)) {
    throw UsageError("--rejects names something that is no file");
  }
  if (fs::exists(fs::symlink_status(beside, failure))) {
    throw UsageError(
        "the rejected rows are first written to the file of --rejects with \".new\" "
        "behind its name, which is there already");
  }
}

}  // namespace

void WriteRejectedRows(const std::string& path, const std::string& imported,
                       const ImportRows& rows) {
  const std::string beside = path + ".new";
  RequirePlace(path, imported, beside);
  std::ofstream file(beside, std::ios::binary);
  file << rows.header;
  for (const ImportRow& row : rows.rows) {
    if (!row.fault.empty()) file << row.bytes;
  }
  file.close();
  std::error_code failure;
  if (file) fs::rename(beside, path, failure);
  if (file && !failure) return;
  fs::remove(beside, failure);
  throw Refusal("the file of rejected rows cannot be written");
}

}  // namespace quillctl
