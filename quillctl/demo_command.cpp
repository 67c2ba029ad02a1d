// The demonstration: one run that shows the main functions of Quillkit.

#include <filesystem>
#include <iostream>
#include <memory>
#include <system_error>

#include "quillctl/commands.h"
#include "quillctl/displayed_text.h"
#include "quillctl/failures.h"
#include "quillctl/import_command.h"
#include "quillctl/info_command.h"
#include "quillctl/item_commands.h"
#include "quillctl/key_commands.h"
#include "quillctl/system/program_file.h"

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
  ShowInfo(session);
  Heading("The soft keys and their items");
  ShowKeys(session);
  std::cout << '\n';
  ShowItems(session, "");
}

void ChangeSoftKeys(const Session& session) {
  Heading("Add a key with three items");
  AddKey(session, kKey);
  AddItem(session, kKey, {"Invoices in", "files.example.com", "/in", "ledger", 3, 0x10002});
  AddItem(session, kKey, {"Invoices out", "files.example.com", "/out", "ledger", 3, 0x10002});
  AddItem(session, kKey, {"Tax office", "tax.example.org", "/upload", "records", 1, 0x20021});
  RenameItem(session, kKey, "Tax office", "Tax adviser");
  ShowItems(session, kKey);
  Heading("Find all items whose name begins with \"Invoices\"");
  FindItems(session, "Invoices", false);
}

// Returns the path of a file in the data folder. Throws a UsageError if it does not exist.
std::string DataFile(const std::string& folder, const char* name) {
  const std::filesystem::path path = std::filesystem::path(folder) / name;
  if (std::error_code failure; !std::filesystem::exists(path, failure)) {
    throw UsageError("cannot find " + std::string(name) + " in the folder " + Quoted(folder) +
                     "; choose another folder with --data");
  }
  return path.string();
}

struct DataFiles {
  explicit DataFiles(const std::string& folder)
      : contacts(DataFile(folder, "contacts.csv")),
        directory(DataFile(folder, "directory.ldif")),
        mailServer(DataFile(folder, "mailserver.csv")) {}

  std::string contacts;
  std::string directory;
  std::string mailServer;
};

void ImportFile(const Session& session, const char* heading, const std::string& file,
                const char* format, const char* book) {
  Heading(heading);
  ImportRequest request;
  request.file = file;
  request.format = format;
  request.book = book;
  request.faultsShown = 3;
  try {
    ImportInSession(request, session);
  } catch (const PartialFailure& why) {  // the files have rows that cannot be imported
    std::cerr << "quillctl: " << why.what() << '\n';
  }
}

void ImportFiles(const Session& session, const DataFiles& files) {
  ImportFile(session, "Import a contact manager's export into the e-mail book", files.contacts, "",
             "email");
  ImportFile(session, "Import the same file into the fax book", files.contacts, "", "fax");
  ImportFile(session, "Import a directory export", files.directory, "", "");
  ImportFile(session, "Import a mail server's export, as the library converts it", files.mailServer,
             "mail", "");
}

// Returns the folder of the sample files: "data" in the program's folder if it exists, as in a
// build tree, else the installed folder.
std::string DemoDataFolder() {
  const std::filesystem::path folder = std::filesystem::path(ProgramFile()).parent_path();
  const std::filesystem::path built = folder / "data";
  if (std::error_code failure; std::filesystem::exists(built, failure)) return built.string();
  return (folder / QUILLCTL_INSTALLED_DATA).lexically_normal().string();
}

// Shows the appliance, adds a soft key with items, imports the three sample files into the address
// books, deletes the key and logs out. Throws a UsageError and does nothing if a file is missing.
// Stops at the first step that throws.
void RunDemo(Session& session, const std::string& dataFolder) {
  const DataFiles files(dataFolder);
  ShowAppliance(session);
  ChangeSoftKeys(session);
  ImportFiles(session, files);
  Heading("Delete the key");
  DeleteKey(session, kKey);
  ShowKeys(session);
  session.LogOut();
  std::cout << "\nLogged out.\n";
}

}  // namespace

void AddDemoCommand(Commands& commands) {
  const auto folder = std::make_shared<std::string>(DemoDataFolder());
  CLI::App* demo =
      commands.AddWithoutLogin("demo", "Demonstrate Quillkit; adds entries to the address books",
                               [folder](const Credentials& given) {
                                 Credentials credentials = given;
                                 if (!credentials.password)
                                   credentials.password = kSimulatedPassword;
                                 Session session(credentials);
                                 RunDemo(session, *folder);
                               });
  demo->add_option("--data", *folder,
                   "The folder of the files to import (default: the sample files)");
}

}  // namespace quillctl
