// Imports a file of e-mail addresses and reports the result of each row. ImportAddressBook returns
// one status for the whole file: the program compares the rows with the book afterwards.
//
// usage: import_report FILE    a heading, then rows of a name and an address

#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <string>

#include "appliance/scanner.h"
#include "toolkit/quillkit.h"
#include "toolkit/toolkit_app.h"

namespace {

using namespace quillkit;

// The record has room for one column. The second one follows it directly.
struct Options {
  ImportOptions options{};
  std::int32_t secondColumn = 0;
};

std::int32_t Import(CScanner* box, const char* path) {
  Options import;
  import.options.skipHeader = 1;
  import.options.format = ImportFormatDelimited;
  import.options.targetBook = TargetEmail;
  import.options.columnCount = 2;
  import.options.columnMap[0] = 0;  // the name
  import.secondColumn = 1;          // the address
  return ImportAddressBook(box, path, &import.options);
}

// The result of one row, from what is in the book now.
std::string ResultOf(CScanner* box, const std::string& name, const std::string& address) {
  CEmailEntry entry;
  entry.SetName(name.substr(0, 31));  // a longer name is cut
  const Status status = box->EmailEntries().ReadOne(&entry);
  if (status == kDataNotFound || name.empty()) return "missing";
  if (status != kNoError) return "unknown, code " + std::to_string(status);
  if (entry.Address() != address) return std::string("replaced, address ") + entry.Address();
  if (entry.Name() != name) return std::string("arrived as ") + entry.Name();
  return address.empty() ? "arrived without an address" : "arrived";
}

void Report(CScanner* box, std::istream& file) {
  std::string row;
  std::getline(file, row);  // the heading
  for (int line = 2; std::getline(file, row); ++line) {
    const std::size_t comma = row.find(',');
    const std::string name = row.substr(0, comma);
    std::cout << "line " << line << ", " << name << ": "
              << ResultOf(box, name, row.substr(comma + 1)) << '\n';
  }
}

}  // namespace

int main(int argc, char** argv) {
  std::ifstream file(argc == 2 ? argv[1] : "");
  if (!file) {
    std::cerr << "usage: import_report FILE\n";
    return EXIT_FAILURE;
  }
  CScanner* box =
      CToolkitApp::Start() ? LogToQuillbox("127.0.0.1", "ADMINISTRATOR", "quill", "", 0) : nullptr;
  if (box == nullptr) {
    std::cerr << "no login: code " << GetLastToolkitError() << '\n';
    return EXIT_FAILURE;
  }
  // A refused row ends the import. Rows before it have arrived, rows after it are missing.
  std::cout << "status of the import: " << Import(box, argv[1]) << '\n';
  Report(box, file);
  Logout();
  CToolkitApp::Stop();
}
