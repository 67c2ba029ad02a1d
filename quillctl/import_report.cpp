#include "quillctl/import_report.h"

#include <filesystem>
#include <iostream>
#include <string>
#include <system_error>

#include "quillctl/failures.h"
#include "quillctl/json_output.h"
#include "quillctl/text_file.h"

namespace quillctl {

namespace fs = std::filesystem;

void RequireRejectsFile(const std::string& path, const std::string& imported, bool overwrite) {
  std::error_code failure;
  if (fs::equivalent(path, imported, failure)) {
    throw UsageError("--rejects: this is the file to import; choose another file");
  }
  if (fs::exists(path, failure) && !fs::is_regular_file(path, failure)) {
    throw UsageError("--rejects: not a regular file; choose another file");
  }
  const fs::path folder = fs::path(path).parent_path();
  if (path == "-" || (!folder.empty() && !fs::is_directory(folder, failure))) {
    throw UsageError("--rejects: cannot write " + Quoted(path) + "; choose another file");
  }
  if (fs::exists(path, failure) && !overwrite) {
    throw UsageError("--rejects: the file exists; choose another one, or add --force");
  }
}

void ShowImportSummary(const std::string& file, const ImportRows& rows, bool isVerified) {
  std::cout << (isVerified ? "Imported " : "Sent ") << rows.Entries() << " of " << rows.rows.size()
            << " rows of " << file;
  if (rows.passedOver != 0) {
    std::cout << "; skipped " << rows.passedOver << " records of other kinds";
  }
  std::cout << ".\n";
}

void ShowFaults(const ImportRows& rows, std::size_t limit) {
  std::cout.flush();
  std::size_t count = 0;
  for (const ImportRow& row : rows.rows) {
    if (row.fault.empty() || count++ >= limit) continue;
    std::cerr << "line " << row.line << ": " << row.fault << '\n';
  }
  if (count > limit) {
    std::cerr << "and " << count - limit << " more; list all with --json\n";
  }
}

void ShowImportJson(const ImportRows& rows, std::size_t sent, bool isVerified) {
  Json rejected = Json::array();
  for (const ImportRow& row : rows.rows) {
    if (!row.fault.empty()) rejected.push_back({{"line", row.line}, {"reason", row.fault}});
  }
  PrintJson({{"rows", rows.rows.size()},
             {"sent", sent},
             {"arrived", isVerified ? rows.Entries() : 0},
             {"unknown", isVerified ? 0 : sent},
             {"passedOver", rows.passedOver},
             {"rejected", std::move(rejected)}});
}

void WriteRejectedRows(const std::string& path, const ImportRows& rows) {
  if (rows.Rejected() == 0) return;
  std::string text(rows.header);
  for (const ImportRow& row : rows.rows) {
    if (!row.fault.empty()) text += row.bytes;
  }
  // If the first row begins with a byte order mark, it would be lost when the file is imported.
  if (WithoutByteOrderMark(text).size() != text.size()) text.insert(0, kByteOrderMark);
  WriteTextFile(path, text, quillkit::Readers::kOwner);  // it may contain passwords
}

}  // namespace quillctl
