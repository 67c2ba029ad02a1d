// The list of appliances, and the class record and the archive form of the agent.

#include <algorithm>
#include <iterator>

#include "appliance/scanner.h"
#include "base/archive.h"
#include "books/user_record.h"
#include "bridge/agent.h"

namespace quillkit {

const ClassRecord CAgent::kClass = {"CAgent", sizeof(CAgent), 1, CreateObject<CAgent>, nullptr};

CAgent::CAgent() : scanCursor(scanners.end()) {}

CAgent::~CAgent() {
  Shutdown();
}

void CAgent::Serialize(Archive& archive) {
  if (!archive.IsStoring() && !scanners.empty()) DeleteScanners();
  archive.Exchange(scanners);
}

int CAgent::AddScanner(CScanner* scanner) {
  if (scanner == nullptr) return 0;
  ScannerList added(1, scanner);  // the one step that may throw
  const auto found = Locate(scanner->Address());
  if (found != scanners.end()) {
    std::unique_ptr<CScanner> old = Extract(found);
    if (old.get() == scanner) (void)old.release();
  }
  scanners.splice(scanners.end(), added);
  return 1;
}

CScanner* CAgent::FindScanner(const std::uint32_t* address) const {
  const auto found = Locate(*address);
  return found != scanners.end() ? *found : nullptr;
}

int CAgent::RemoveScanner(const std::uint32_t* address) {
  const auto found = Locate(*address);
  if (found == scanners.end()) return 0;
  Extract(found);
  return 1;
}

CScanner* CAgent::ScannerAt(std::int32_t index) const {
  if (index < 0 || index >= ScannerCount()) return nullptr;
  return *std::next(scanners.begin(), index);
}

CScanner* CAgent::FirstScanner() {
  scanCursor = scanners.begin();
  return NextScanner();
}

CScanner* CAgent::NextScanner() {
  return scanCursor != scanners.end() ? *scanCursor++ : nullptr;
}

void CAgent::DeleteScanners() {
  while (!scanners.empty()) Extract(scanners.begin());
  FreeLogRecords();
}

CAgent::ScannerList::const_iterator CAgent::Locate(std::uint32_t address) const {
  return std::find_if(scanners.begin(), scanners.end(),
                      [&](const CScanner* each) { return each->Address() == address; });
}

// Removes a scanner from the list. If it is the next one of an iteration, the iteration skips it.
std::unique_ptr<CScanner> CAgent::Extract(ScannerList::const_iterator position) {
  std::unique_ptr<CScanner> scanner(*position);
  if (scanCursor == position) ++scanCursor;
  scanners.erase(position);
  return scanner;
}

}  // namespace quillkit
