#include "quillctl/demo_command.h"

#include <filesystem>
#include <iostream>
#include <memory>
#include <system_error>

#include "quillctl/commands.h"
#include "quillctl/failures.h"
#include "quillctl/import_command.h"
#include "quillctl/info_command.h"
#include "quillctl/item_commands.h"
#include "quillctl/key_commands.h"
#include "quillctl/system/program_file.h"

namespace quillctl {
namespace {

// The password of a simulated appliance as it is delivered.
constexpr const char* kSimulatedPassword = "quill";

const std::string kKey = "Accounting";

void Heading(const char* text) {
  std::cout << "\n== " << text << '\n';
}

void ShowAppliance(const Session& session) {
  std::cout << "== The appliance\n";
  ShowInfo(session);
  Heading("Its soft keys, and the items under them");
  ShowKeys(session);
  std::cout << '\n';
  ShowItems(session, "");
}

void ChangeSoftKeys(const Session& session) {
  Heading("A key of our own, with three items");
  AddKey(session, kKey);
  AddItem(session, kKey, {"Invoices in", "files.example.com", "/in", "ledger", 3, 0x10002});
  AddItem(session, kKey, {"Invoices out", "files.example.com", "/out", "ledger", 3, 0x10002});
  AddItem(session, kKey, {"Tax office", "tax.example.org", "/upload", "records", 1, 0x20021});
  RenameItem(session, kKey, "Tax office", "Tax adviser");
  ShowItems(session, kKey);
  Heading("The items under all keys whose name begins with \"Invoices\"");
  FindItems(session, "Invoices", false);
}

// The file in the data folder.
std::string DataFile(const std::string& folder, const char* name) {
  const std::filesystem::path path = std::filesystem::path(folder) / name;
  if (std::error_code failure; !std::filesystem::exists(path, failure)) {
    throw UsageError("the folder of data has no " + std::string(name) + "; --data names another");
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

ImportRequest FileRequest(const std::string& file) {
  ImportRequest request;
  request.file = file;
  request.faultsShown = 3;
  return request;
}

void ImportContacts(const Session& session, const std::string& file, const char* target,
                    const char* map) {
  ImportRequest request = FileRequest(file);
  request.format = "csv";
  request.target = target;
  request.map = map;
  request.skipHeader = true;
  ImportAsPartOfSession(request, session);
}

void ImportExport(const Session& session, const std::string& file, const char* format) {
  ImportRequest request = FileRequest(file);
  request.format = format;
  ImportAsPartOfSession(request, session);
}

void ImportFiles(const Session& session, const DataFiles& files) {
  Heading("A contact manager's export into the e-mail book (--map 2,10)");
  ImportContacts(session, files.contacts, "email", "2,10");
  Heading("The same file into the fax book (--map 2,8,-1)");
  ImportContacts(session, files.contacts, "fax", "2,8,-1");
  Heading("A directory's export");
  ImportExport(session, files.directory, "directory");
  Heading("A mail server's export");
  ImportExport(session, files.mailServer, "mail");
}

// The folder of the files that came with quillctl: "data" beside the program where it was built, or
// the folder that is installed with it.
std::string DemoDataFolder() {
  const std::filesystem::path folder = std::filesystem::path(ProgramFile()).parent_path();
  const std::filesystem::path built = folder / "data";
  if (std::error_code failure; std::filesystem::exists(built, failure)) return built.string();
  return (folder / QUILLCTL_INSTALLED_DATA).lexically_normal().string();
}

// Shows the appliance, adds a soft key with items, imports the three files of the data folder into
// the address books, deletes the key and logs out. Throws a UsageError, with nothing done, if a
// file is missing. The first step that fails ends it, with that step's exception.
void RunDemo(Session& session, const std::string& dataFolder) {
  const DataFiles files(dataFolder);
  ShowAppliance(session);
  ChangeSoftKeys(session);
  ImportFiles(session, files);
  Heading("The key goes again");
  DeleteKey(session, kKey);
  ShowKeys(session);
  session.LogOut();
  std::cout << "\nLogged out.\n";
}

}  // namespace

void AddDemoCommand(Commands& commands) {
  const auto folder = std::make_shared<std::string>(DemoDataFolder());
  CLI::App* demo =
      commands.AddOffline("demo", "Show what Quillkit does; adds to the appliance's books",
                          [folder](const Credentials& given) {
                            Credentials credentials = given;
                            if (!credentials.password) credentials.password = kSimulatedPassword;
                            Session session(credentials);
                            RunDemo(session, *folder);
                          });
  demo->add_option("--data", *folder,
                   "The folder of the files to import, else those that came with quillctl");
}

}  // namespace quillctl
