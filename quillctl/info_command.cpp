#include "quillctl/info_command.h"

#include <array>
#include <bit>
#include <iostream>

#include "quillctl/commands.h"
#include "quillctl/json_output.h"
#include "quillctl/text_table.h"

namespace quillctl {

std::string DottedAddress(std::uint32_t address) {
  std::string text;
  for (const unsigned char byte : std::bit_cast<std::array<unsigned char, 4>>(address)) {
    if (!text.empty()) text += '.';
    text += std::to_string(byte);
  }
  return text;
}

void ShowInfo(const Session& session, const InfoArguments& a) {
  quillkit::CScanner* scanner = session.Scanner();
  const bool isAdmin = quillkit::IsAdminConnected(scanner) != 0;
  const Row rows[] = {{"Name", quillkit::GetScannerName(scanner)},
                      {"Address", DottedAddress(quillkit::GetScannerAddress(scanner))},
                      {"Model", quillkit::GetScannerModel(scanner)},
                      {"Version", quillkit::GetScannerVersion(scanner)},
                      {"User", session.User()}};
  if (a.json) {
    Json info;
    for (const Row& row : rows) SetText(info, LowerCase(row[0]), row[1]);
    info["administrator"] = isAdmin;
    PrintJson(info);
    return;
  }
  TextTable table;
  for (const Row& row : rows) table.AddRow(row);
  table.AddRow({"Administrator", isAdmin ? "yes" : "no"});
  table.Print();
}

void AddInfoCommand(Commands& commands) {
  const auto [info, a] = commands.Add("info", "Show the appliance and the account", ShowInfo);
  AddJson(info, a.json);
}

}  // namespace quillctl
