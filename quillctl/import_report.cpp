#include "quillctl/import_report.h"

#include <filesystem>
#include <iostream>
#include <string>
#include <system_error>

#include "quillctl/failures.h"
#include "quillctl/json_output.h"
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

void ShowImportSummary(const std::string& file, const ImportRows& rows, bool isSeen) {
  std::cout << "Imported " << file << ": " << rows.Entries() << " of " << rows.rows.size()
            << (isSeen ? " rows became entries" : " rows were sent");
  if (rows.passedOver != 0) {
    std::cout << "; " << rows.passedOver << " that the format does not count were passed over";
  }
  std::cout << ".\n";
}

void ShowFaults(const ImportRows& rows, std::size_t most) {
  std::cout.flush();
  std::size_t told = 0;
  for (const ImportRow& row : rows.rows) {
    if (row.fault.empty() || told++ >= most) continue;
    std::cerr << "line " << row.line << ": " << row.fault << '\n';
  }
  if (told > most) {
    std::cerr << "and " << told - most << " more; --json tells them all\n";
  }
}

void ShowImportJson(const ImportRows& rows, bool isSeen) {
  Json rejected = Json::array();
  for (const ImportRow& row : rows.rows) {
    if (!row.fault.empty()) rejected.push_back({{"line", row.line}, {"reason", row.fault}});
  }
  PrintJson({{"rows", rows.rows.size()},
             {"imported", rows.Entries()},
             {"verified", isSeen},
             {"passedOver", rows.passedOver},
             {"rejected", std::move(rejected)}});
}

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
