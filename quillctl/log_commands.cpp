// The commands `log` and `database`.

#include <iostream>
#include <string>
#include <vector>

#include "appliance/scanner.h"
#include "console/confirmation.h"
#include "console/displayed_text.h"
#include "console/json_output.h"
#include "console/options.h"
#include "quillctl/address_books.h"
#include "quillctl/commands.h"
#include "quillctl/failures.h"

namespace quillctl {
namespace {

constexpr const char* kAllUsers = "*";

struct Arguments {
  std::string user = kAllUsers;
  std::string first;
  std::string second;
  bool exceptSystem = false;
  bool json = false;
  bool jsonLines = false;
  console::Consent consent;
};

// Reads the records of a user, without the zero bytes at their ends.
std::vector<std::string> ReadLog(const Session& session, const std::string& user) {
  const quillkit::CScanner& scanner = *session.Scanner();
  const std::int32_t status = scanner.ReadLog(user);
  // The appliance can add a record after it has counted them.
  if (status != quillkit::kMoreData) RequireSuccess(status, "read the log");
  std::vector<std::string> records;
  for (std::int32_t i = 0; const auto* record = scanner.LogRecordAt(i); ++i) {
    records.emplace_back(record->bytes, sizeof record->bytes);
    records.back().erase(records.back().find_last_not_of('\0') + 1);
  }
  return records;
}

// Returns whether the appliance has such an account, or cannot tell.
bool MayExist(const Session& session, const std::string& name) {
  const AddressBook& accounts = BookOf("users");
  const auto change = [](console::Row&) { return false; };
  return accounts.change(accounts, *session.Scanner(), name, change) != quillkit::kDataNotFound;
}

// Reads the records of the user that the arguments name. Sets `user` to the name as the records
// have it. Throws a NotFound if there are none and no such account; for JSON, prints an empty list
// first.
std::vector<std::string> ReadLog(const Session& session, const Arguments& a, std::string& user) {
  std::vector<std::string> records;
  for (const std::string& each : console::FormsOf(a.user)) {
    if (records.empty()) records = ReadLog(session, user = each);
  }
  if (!records.empty() || a.user == kAllUsers) return records;
  for (const std::string& each : console::FormsOf(a.user)) {
    if (MayExist(session, each)) return records;
  }
  if (a.json) console::PrintJson(console::Json::array());
  throw NoAccount(a.user);
}

// Returns the bytes with a space in place of each group of zero bytes.
std::string TextOf(const std::string& bytes) {
  std::string text;
  for (const char each : bytes) {
    if (each != '\0') text += each;
    if (each == '\0' && !text.ends_with(' ')) text += ' ';
  }
  return text;
}

void ShowLog(const Session& session, const Arguments& a) {
  std::vector<console::Row> rows;
  std::string user;
  for (const std::string& each : ReadLog(session, a, user)) {
    rows.push_back({TextOf(each), console::HexadecimalBytes(each)});
  }
  const console::Row headings = {"Text", "Bytes"};
  if (!a.jsonLines) return console::PrintRows(headings, rows, a.json);
  for (const console::Row& each : rows) {
    std::cout << console::ShownRow(headings, each).dump() << '\n';
  }
}

void CountLog(const Session& session, const Arguments& a) {
  std::string user;
  std::cout << ReadLog(session, a, user).size() << '\n';
}

// Clears the log. Afterwards the appliance may already have added records, but those from before
// must not be there any more. It is unknown which of them --except-system keeps.
void ClearLog(const Session& session, const Arguments& a) {
  std::string user;
  const std::vector<std::string> before = ReadLog(session, a, user);
  if (before.empty()) throw NotFound("there are no such records");
  const std::string action = "Delete the records of the log (" + std::to_string(before.size()) +
                             ')' +
                             (a.exceptSystem ? ", except those of ADMINISTRATOR and GUEST" : "");
  if (!console::Agreed(a.consent, action)) return;
  const quillkit::CScanner& scanner = *session.Scanner();
  MakeChange(
      [&] { return a.exceptSystem ? scanner.ClearLogExceptSystem() : scanner.ClearLog(user); },
      "clear the log");
  if (!a.exceptSystem) {
    const std::vector<std::string> now =
        ReadBack("the log may have changed", [&] { return ReadLog(session, user); });
    if (now.size() >= before.size() && now.front() == before.front()) {
      throw Refusal("cannot clear the log: the appliance did not make the change");
    }
  }
  std::cout << "Cleared the log.\n";
}

void BackUpDatabase(const Session& session, const Arguments& a) {
  MakeChange([&] { return session.Scanner()->BackupDatabase(a.first.c_str(), a.second.c_str()); },
             "back up the database");
  std::cout << "Backed up the database.\n";
}

void RestoreDatabase(const Session& session, const Arguments& a) {
  if (!console::Agreed(a.consent,
                       "Replace all books and accounts of the appliance with the backup")) {
    return;
  }
  MakeChange([&] { return session.Scanner()->RestoreDatabase(a.first.c_str(), a.second.c_str()); },
             "restore the database");
  std::cout << "Restored the database.\n";
}

void CheckDatabase(const Session& session, const Arguments&) {
  RequireSuccess(session.Scanner()->Agent()->CheckDatabase(), "check the database");
  std::cout << "The appliance found no fault in its database.\n";
}

// "*" selects all records, and "_!" begins a list of users whose records are kept.
std::string UserFault(const std::string& user) {
  const bool isFilter = user.find('*') != user.npos || user.starts_with("_!");
  return isFilter ? "a name cannot contain * or begin with _!" : "";
}

using Added = Commands::Added<Arguments>;
using Run = void (*)(const Session&, const Arguments&);

// Adds a command for the records of one user or of all.
Added AddLogCommand(Commands& log, const char* name, const char* help, Run run) {
  const Added added = log.Add(name, help, run);
  AsName(added.app->add_option("user", added.arguments.user, "The account (default: all)"))
      ->check(UserFault, "");
  return added;
}

// Adds a command with two texts for the appliance.
Added AddTextCommand(Commands& database, const char* name, const char* help, Run run) {
  const Added added = database.Add(name, help, run);
  added.app->add_option("first", added.arguments.first, "The first text for the appliance")
      ->required();
  added.app->add_option("second", added.arguments.second, "The second text for the appliance")
      ->required();
  return added;
}

}  // namespace

void AddLogCommands(Commands& commands) {
  Commands log = commands.AddGroup("log", "Show, count and clear the records of the log");
  const auto [show, shown] =
      AddLogCommand(log, "show", "Show records as text and hexadecimal", ShowLog);
  console::AddJsonLines(show, shown.json, shown.jsonLines);
  AddLogCommand(log, "count", "Print the number of records", CountLog);
  const auto [clear, cleared] = AddLogCommand(log, "clear", "Delete records", ClearLog);
  clear->add_flag("--except-system", cleared.exceptSystem, "Keep those of ADMINISTRATOR and GUEST")
      ->excludes(clear->get_option("user"));
  console::AddConsent(clear, cleared.consent);
}

void AddDatabaseCommands(Commands& commands) {
  Commands database =
      commands.AddGroup("database", "Back up, restore and check the appliance's database");
  AddTextCommand(database, "backup", "Back up the database", BackUpDatabase);
  const auto [restore, a] =
      AddTextCommand(database, "restore", "Restore the database", RestoreDatabase);
  console::AddConsent(restore, a.consent);
  database.Add("check", "Let the appliance check its database", CheckDatabase);
}

}  // namespace quillctl
