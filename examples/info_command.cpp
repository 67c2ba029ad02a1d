#include "examples/info_command.h"

#include <array>
#include <bit>
#include <iostream>

#include "examples/text_table.h"

namespace quillctl {
namespace {

// The address is in network byte order: its first byte in memory is its first number.
std::string DottedAddress(std::uint32_t address) {
  std::string text;
  for (const unsigned char byte : std::bit_cast<std::array<unsigned char, 4>>(address)) {
    if (!text.empty()) text += '.';
    text += std::to_string(byte);
  }
  return text;
}

}  // namespace

void ShowInfo(const Session& session) {
  quillkit::CScanner* scanner = session.scanner();
  TextTable table;
  table.AddRow({"Name", quillkit::GetScannerName(scanner)});
  table.AddRow({"Address", DottedAddress(quillkit::GetScannerAddress(scanner))});
  table.AddRow({"Model", quillkit::GetScannerModel(scanner)});
  table.AddRow({"Version", quillkit::GetScannerVersion(scanner)});
  table.AddRow({"User", session.user()});
  table.AddRow({"Administrator", quillkit::IsAdminConnected(scanner) != 0 ? "yes" : "no"});
  table.Print(std::cout);
}

}  // namespace quillctl
