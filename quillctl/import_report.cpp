#include "quillctl/import_report.h"

#include <iostream>

#include "quillctl/json_output.h"

namespace quillctl {

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

}  // namespace quillctl
