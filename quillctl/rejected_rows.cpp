#include "quillctl/rejected_rows.h"

#include <filesystem>
#include <string>
#include <system_error>

#include "quillctl/failures.h"
#include "quillctl/import_file.h"
#include "quillctl/text_file.h"

namespace quillctl {
namespace {

namespace fs = std::filesystem;

void RequirePlace(const fs::path& path, const fs::path& imported) {
  std::error_code failure;
  if (fs::equivalent(path, imported, failure)) {
    throw UsageError("--rejects names the file that is imported");
  }
  if (fs::exists(path, failure) && !fs::is_regular_file(path, failure)) {
    throw UsageError("--rejects names something that is no file");
  }
}

}  // namespace

void WriteRejectedRows(const std::string& path, const std::string& imported,
                       const ImportRows& rows) {
  RequirePlace(path, imported);
  std::string text(rows.header);
  for (const ImportRow& row : rows.rows) {
    if (!row.fault.empty()) text += row.bytes;
  }
  // A row that begins like a mark that some programs put in front keeps what it begins with.
  if (WithoutByteOrderMark(text).size() != text.size()) text.insert(0, kByteOrderMark);
  WriteTextFile(path, text);
}

}  // namespace quillctl
