#include "quillctl/info_command.h"

#include <array>
#include <bit>
#include <iostream>

#include "console/json_output.h"
#include "console/options.h"
#include "console/text_table.h"
#include "quillctl/commands.h"

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
  const console::Row rows[] = {{"Name", quillkit::GetScannerName(scanner)},
                               {"Address", DottedAddress(quillkit::GetScannerAddress(scanner))},
                               {"Model", quillkit::GetScannerModel(scanner)},
                               {"Version", quillkit::GetScannerVersion(scanner)},
                               {"User", session.User()}};
  if (a.json) {
    console::Json info;
    for (const console::Row& row : rows) console::SetText(info, console::LowerCase(row[0]), row[1]);
    info["administrator"] = isAdmin;
    console::PrintJson(info);
    return;
  }
  console::TextTable table;
  for (const console::Row& row : rows) table.AddRow(row);
  table.AddRow({"Administrator", isAdmin ? "yes" : "no"});
  table.Print();
}

void AddInfoCommand(Commands& commands) {
  const auto [info, a] = commands.Add("info", "Show the appliance and the account", ShowInfo);
  console::AddJson(info, a.json);
}

}  // namespace quillctl
