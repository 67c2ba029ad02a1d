// The demonstration: one run that shows the main functions of Quillkit.

#include <filesystem>
#include <iostream>
#include <string>
#include <system_error>

#include "console/displayed_text.h"
#include "console/system/program_file.h"
#include "quillctl/commands.h"
#include "quillctl/failures.h"
#include "quillctl/import_command.h"
#include "quillctl/info_command.h"
#include "quillctl/item_commands.h"
#include "quillctl/key_commands.h"

namespace quillctl {
namespace {

// The initial password of ADMINISTRATOR on the simulator.
constexpr const char* kSimulatedPassword = "quill";

const std::string kKey = "Accounting";

void Heading(const char* text) {
  std::cout << "\n== " << text << '\n';
}

void ShowAppliance(const Session& session) {
  std::cout << "== The appliance\n";
  ShowInfo(session, {});
  Heading("The soft keys and their items");
  ShowKeys(session, {});
  std::cout << '\n';
  ShowItems(session, {});
}

void ChangeSoftKeys(const Session& session) {
  Heading("Add a key with three items");
  AddKey(session, {.name = kKey});
  for (const ItemValues& each : {
           ItemValues{{"Invoices in", "files.example.com", "/in", "ledger"}, {3, 0x10002}},
           ItemValues{{"Invoices out", "files.example.com", "/out", "ledger"}, {3, 0x10002}},
           ItemValues{{"Tax office", "tax.example.org", "/upload", "records"}, {1, 0x20021}},
       }) {
    AddItem(session, {.key = kKey, .values = each});
  }
  RenameItem(session, {.key = kKey, .name = "Tax office", .newName = "Tax adviser"});
  ShowItems(session, {.key = kKey});
  Heading("Find all items whose name begins with \"Invoices\"");
  FindItems(session, {.name = "Invoices"});
}

// Returns the path of a file in the data folder. Throws a UsageError if it does not exist.
std::string DataFile(const std::string& folder, const char* name) {
  const std::filesystem::path path = std::filesystem::path(folder) / name;
  if (std::error_code failure; !std::filesystem::exists(path, failure)) {
    throw UsageError("cannot find " + std::string(name) + " in the folder " +
                     console::Quoted(folder) + "; choose another folder with --data");
  }
  return path.string();
}

// The imports of a demonstration. An empty format or book is the default.
struct DemoImport {
  const char* heading;
  const char* file;
  const char* format;
  const char* book;
};
constexpr DemoImport kImports[] = {
    {"Import a contact manager's export into the e-mail book", "contacts.csv", "", "email"},
    {"Import the same file into the fax book", "contacts.csv", "", "fax"},
    {"Import a directory export", "directory.ldif", "", ""},
    {"Import a mail server's export, as the library converts it", "mailserver.csv", "mail", ""},
};

void ImportFile(const Session& session, const DemoImport& what, const std::string& folder) {
  Heading(what.heading);
  ImportRequest request;
  request.file = DataFile(folder, what.file);
  request.format = what.format;
  request.book = what.book;
  request.faultsShown = 3;
  try {
    ImportInSession(request, session);
  } catch (const PartialFailure& why) {  // the files have rows that cannot be imported
    std::cerr << "quillctl: " << why.what() << '\n';
  }
}

// Returns the folder of the sample files: "data" in the program's folder if it exists, as in a
// build tree, else the installed folder.
std::string DemoDataFolder() {
  const std::filesystem::path folder = std::filesystem::path(console::ProgramFile()).parent_path();
  const std::filesystem::path built = folder / "data";
  if (std::error_code failure; std::filesystem::exists(built, failure)) return built.string();
  return (folder / QUILLCTL_INSTALLED_DATA).lexically_normal().string();
}

struct Arguments {
  std::string folder = DemoDataFolder();
};

// Shows the appliance, adds a soft key with items, imports the three sample files into the address
// books, deletes the key and logs out. Throws a UsageError and does nothing if a file is missing.
// Stops at the first step that throws.
void RunDemo(const Credentials& given, const Arguments& a) {
  Credentials credentials = given;
  if (!credentials.password) credentials.password = kSimulatedPassword;
  Session session(credentials);
  for (const DemoImport& each : kImports) DataFile(a.folder, each.file);
  ShowAppliance(session);
  ChangeSoftKeys(session);
  for (const DemoImport& each : kImports) ImportFile(session, each, a.folder);
  Heading("Delete the key");
  DeleteKey(session, {.name = kKey, .consent = {.yes = true}});
  ShowKeys(session, {});
  session.LogOut();
  std::cout << "\nLogged out.\n";
}

}  // namespace

void AddDemoCommand(Commands& commands) {
  const auto [demo, a] =
      commands.Add("demo", "Demonstrate Quillkit; adds entries to the address books", RunDemo);
  demo->add_option("--data", a.folder,
                   "The folder of the files to import (default: the sample files)");
}

}  // namespace quillctl
