#include "quillctl/demo_command.h"

#include <filesystem>
#include <iostream>
#include <system_error>

#include "quillctl/failures.h"
#include "quillctl/import_command.h"
#include "quillctl/info_command.h"
#include "quillctl/item_commands.h"
#include "quillctl/key_commands.h"
#include "quillctl/system/program_file.h"

namespace quillctl {
namespace {

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

}  // namespace

std::string DemoDataFolder() {
  const std::filesystem::path folder = std::filesystem::path(ProgramFile()).parent_path();
  const std::filesystem::path built = folder / "data";
  if (std::error_code failure; std::filesystem::exists(built, failure)) return built.string();
  return (folder / QUILLCTL_INSTALLED_DATA).lexically_normal().string();
}

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

}  // namespace quillctl
