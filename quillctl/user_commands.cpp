// The commands `user` and `printer`. Their books are small: they are read as a whole.

#include <algorithm>
#include <iostream>
#include <optional>
#include <string_view>
#include <vector>

#include "books/printer_ab.h"
#include "books/user_ab.h"
#include "console/confirmation.h"
#include "console/json_output.h"
#include "console/options.h"
#include "console/password.h"
#include "console/system/deferred_termination.h"
#include "quillctl/commands.h"
#include "quillctl/failures.h"

namespace quillctl {
namespace {

using quillkit::CUserAB;
using quillkit::CUserRecord;

struct Arguments {
  std::string name;
  std::string newName;
  std::string passwordFile;
  std::optional<std::string> third;
  std::optional<std::string> fourth;
  bool askPassword = false;
  bool json = false;
  console::Consent consent;
};

// Returns all entries of a book that has at most `limit` entries. Throws a Refusal if they cannot
// be read, or if their number is not the one that the appliance reports.
template <class Entry>
std::vector<Entry> ReadWhole(quillkit::BookAccess<Entry> book, std::size_t limit,
                             const std::string& title) {
  std::uint32_t size = 0;
  RequireSuccess(book.Size(&size), "count the " + title);
  std::vector<Entry> entries(limit);
  auto count = static_cast<std::uint32_t>(limit);
  const std::int32_t status = book.ReadAll(entries.data(), &count);
  if (status == quillkit::kDataNotFound && size == 0) return {};
  RequireSuccess(status, "read the " + title);
  entries.resize(count);
  if (count == size) return entries;
  throw Refusal("cannot read the " + title + ": the appliance delivers only some of them");
}

std::string Described(const std::string& name) {
  return "the account " + console::Quoted(name);
}

std::vector<quillkit::CUserEntry> ReadUsers(const Session& session) {
  return ReadWhole(session.Scanner()->UserEntries(), quillkit::MaxUsers, "accounts");
}

const quillkit::CUserEntry* FindUser(const std::vector<quillkit::CUserEntry>& users,
                                     std::string_view name) {
  const auto found =
      std::ranges::find_if(users, [&](const auto& each) { return each.name == name; });
  return found != users.end() ? &*found : nullptr;
}

// An account of the appliance, with the book through which it is changed.
struct Account {
  explicit Account(const Session& newSession) : session(newSession) {
    book.Attach(session.Scanner(), 0, 0);
  }

  // Throws a NotFound if there is no account of this name.
  Account(const Session& newSession, const std::string& typed) : Account(newSession) {
    const std::vector<quillkit::CUserEntry> users = ReadUsers(session);
    name = console::StoredName(
        typed, [&](const std::string& form) { return FindUser(users, form) != nullptr; });
    const quillkit::CUserEntry* const found = FindUser(users, name);
    if (found == nullptr) throw NoAccount(typed);
    user.SetFrom(&book, *found);
    user.tag = found->tag;
  }

  // Stores the password and the texts that are given.
  void Set(const Arguments& a, const std::optional<std::string>& password) {
    const bool isSet = (!password || user.SetPassword(*password) != 0) &&
                       user.SetThird(a.third.value_or(user.Third())) != 0 &&
                       user.SetFourth(a.fourth.value_or(user.Fourth())) != 0;
    if (isSet) return;
    throw UsageError("a password has at most 15 bytes, a third or fourth text at most 255");
  }

  // Makes a change. Throws a Refusal with the last error unless it succeeds. Then reads the account
  // again. Throws a Refusal unless it is as in `user` or, with `isDeleted`, does not exist.
  template <class Call>
  void Change(const std::string& verb, Call call, bool isDeleted = false) const {
    const console::DeferredTermination termination(kAwaitingReply);
    const bool succeeded = call();
    const std::string what = verb + ' ' + Described(name);
    if (!succeeded) RequireChange(quillkit::GetLastToolkitError(), what);
    const std::vector<quillkit::CUserEntry> users =
        ReadBack(Described(name) + " may have changed", [&] { return ReadUsers(session); });
    const quillkit::CUserEntry* const now = FindUser(users, user.name.View());
    // An appliance may deliver no passwords.
    const bool isSame = now != nullptr && now->third == user.third && now->fourth == user.fourth &&
                        now->flags == user.flags &&
                        (now->password.IsEmpty() || now->password == user.password);
    const bool isRenamed = user.name == name || FindUser(users, name) == nullptr;
    if (succeeded && (isDeleted ? now == nullptr : isSame && isRenamed)) return;
    throw Refusal("cannot " + what + ": the appliance did not make the change");
  }

  const Session& session;
  std::string name;  // as the appliance has it
  CUserAB book;
  CUserRecord user;
};

console::Row Cells(const CUserRecord& user) {
  return {user.Name(), user.Third(), user.Fourth(), user.IsOn() ? "yes" : "no"};
}

void PrintUsers(const std::vector<console::Row>& rows, bool json, bool isObject) {
  console::PrintRows({"Name", "Third", "Fourth", "On"}, rows, json, "on", isObject);
}

void ListUsers(const Session& session, const Arguments& a) {
  std::vector<console::Row> rows;
  for (const auto& each : ReadUsers(session)) {
    CUserRecord user;
    user.SetFrom(nullptr, each);
    rows.push_back(Cells(user));
  }
  PrintUsers(rows, a.json, false);
}

void ShowUser(const Session& session, const Arguments& a) {
  PrintUsers({Cells(Account(session, a.name).user)}, a.json, true);
}

// Returns the password in the file that the arguments name, or what the user types.
std::string NewPassword(const Arguments& a) {
  return a.passwordFile.empty() ? console::AskForNewPassword(a.name)
                                : console::PasswordFromFile(a.passwordFile, "--new-password-file");
}

void AddUser(const Credentials& credentials, const Arguments& a) {
  const std::string password = NewPassword(a);
  const Session session(credentials);
  Account account(session);
  account.name = console::StoredName(a.name, [&](const std::string& form) {
    return FindUser(ReadUsers(session), form) != nullptr;  // one that exists is refused
  });
  const std::uint32_t on = 1;  // as an imported account
  account.user.SetFrom(&account.book, account.name, {}, {}, {}, &on, &on);
  account.Set(a, password);
  account.Change("add", [&] { return account.book.AddUser(&account.user, 0); });
  std::cout << "Added " << Described(account.name) << ".\n";
}

void EditUser(const Credentials& credentials, const Arguments& a) {
  std::optional<std::string> password;
  if (a.askPassword || !a.passwordFile.empty()) password = NewPassword(a);
  if (!password && !a.third && !a.fourth) throw UsageError("name what to change, with an option");
  const Session session(credentials);
  Account account(session, a.name);
  account.Set(a, password);
  account.Change("change", [&] { return account.book.ModifyUser(&account.user, 0); });
  std::cout << "Changed " << Described(account.name) << ".\n";
}

void RenameUser(const Session& session, const Arguments& a) {
  RequireNewName(a.name, a.newName);
  Account account(session, a.name);
  account.user.SetName(a.newName);
  account.Change("rename", [&] { return account.book.RenameUser(account.name, &account.user, 0); });
  std::cout << "Renamed " << Described(account.name) << " to " << console::Quoted(a.newName)
            << ".\n";
}

template <bool kOn>
void Switch(const Session& session, const Arguments& a) {
  Account account(session, a.name);
  const std::string verb = kOn ? "on" : "off";
  if (account.user.IsOn() != kOn) {
    account.Change("turn " + verb,
                   [&] { return (kOn ? account.user.TurnOn(0) : account.user.TurnOff(0)) != 0; });
  }
  std::cout << "The account " << console::Quoted(account.name) << " is " << verb << ".\n";
}

void DeleteUser(const Session& session, const Arguments& a) {
  Account account(session, a.name);
  const std::string what = Described(account.name);
  if (!console::Agreed(a.consent, "Delete " + what + " and its log")) return;
  const console::DeferredTermination termination("deleting the account");
  try {
    account.Change(
        "delete", [&] { return account.book.DeleteUser(&account.user, 0); }, true);
  } catch (const Refusal& why) {
    throw Refusal(std::string(why.what()) + "; its log may have been cleared");
  }
  std::cout << "Deleted " << what << ".\n";
}

std::vector<console::Row> ReadPrinters(const Session& session) {
  std::vector<console::Row> rows;
  for (const auto& each :
       ReadWhole(session.Scanner()->PrinterEntries(), quillkit::MaxPrinters, "printers")) {
    rows.push_back({each.printerName.c_str(), each.description.c_str(), each.printerModel.c_str(),
                    each.isDefault == 1 ? "yes" : "no"});
  }
  return rows;
}

void PrintPrinters(const std::vector<console::Row>& rows, bool json) {
  console::PrintRows({"Name", "Description", "Model", "Default"}, rows, json, "default");
}

void ListPrinters(const Session& session, const Arguments& a) {
  PrintPrinters(ReadPrinters(session), a.json);
}

void ListModels(const Session& session, const Arguments& a) {
  std::vector<console::Row> rows;
  for (const auto& each :
       ReadWhole(session.Scanner()->ModelEntries(), quillkit::MaxPrinterModels, "printer models")) {
    rows.push_back({each.modelName.c_str(), each.modelText.c_str()});
  }
  console::PrintRows({"Model", "Text"}, rows, a.json);
}

// Makes a printer the only default, and returns the printers. If it is one of several defaults, the
// library clears it: then only the second try succeeds.
std::vector<console::Row> SetDefaultPrinter(const Session& session, const std::string& typed) {
  const std::vector<console::Row> before = ReadPrinters(session);
  const std::string name = console::StoredName(typed, [&](const std::string& form) {
    return std::ranges::any_of(before,
                               [&](const console::Row& each) { return each.front() == form; });
  });
  std::vector<console::Row> wanted = before;
  bool isFound = false;
  for (console::Row& each : wanted) {
    isFound = isFound || each.front() == name;
    each.back() = each.front() == name ? "yes" : "no";
  }
  if (!isFound) {
    throw NotFound("the appliance has no printer " + console::Quoted(name) +
                   "; see quillctl printer list");
  }
  quillkit::CPrinterAB book;
  book.Attach(session.Scanner(), 0);
  std::vector<console::Row> now = before;
  std::int32_t error = 0;
  for (int tries = 0; tries < 2 && error == 0 && now != wanted; ++tries) {
    book.LoadPrinters();
    book.SetDefaultPrinter(name);
    error = quillkit::GetLastToolkitError();
    now = ReadBack("the default printer may have changed", [&] { return ReadPrinters(session); });
  }
  if (now == wanted) return now;
  const std::string text = "cannot make " + console::Quoted(name) + " the only default printer: " +
                           (error != 0 ? CodeAndText(error) : "the appliance did not change it");
  if (now == before) throw Refusal(text);
  throw PartialFailure(text + "; other changes were made, see quillctl printer list");
}

void DefaultPrinter(const Session& session, const Arguments& a) {
  std::vector<console::Row> rows;
  if (a.name.empty()) {
    rows = ReadPrinters(session);
  } else {
    if (console::IsDryRun(a.consent,
                          "Make " + console::Quoted(a.name) + " the only default printer")) {
      return;
    }
    const console::DeferredTermination termination("making one printer the default");
    rows = SetDefaultPrinter(session, a.name);
  }
  std::erase_if(rows, [](const console::Row& each) { return each.back() != "yes"; });
  if (a.json) {
    PrintPrinters(rows, true);
  } else {
    for (const console::Row& each : rows) std::cout << console::DisplayedText(each.front()) << '\n';
  }
  if (rows.empty()) throw NotFound("no printer is the default; see quillctl printer list");
}

using Added = Commands::Added<Arguments>;

// Adds a command whose argument is an account.
template <class Context>
Added AddUserCommand(Commands& user, const char* name, const char* help,
                     void (*run)(const Context&, const Arguments&)) {
  const Added added = user.Add(name, help, run);
  AddName(added.app, "name", added.arguments.name, "The name of the account");
  return added;
}

// Adds the options for what an account holds. Returns the one for the password.
CLI::Option* AddTexts(CLI::App* command, Arguments& a) {
  command->add_option("--third-text", a.third, "Its third text, at most 255 bytes");
  command->add_option("--fourth-text", a.fourth, "Its fourth text, at most 255 bytes");
  return command
      ->add_option("--new-password-file", a.passwordFile,
                   "Read its new password from the first line of a file")
      ->type_name("FILE");
}

}  // namespace

void AddUserCommands(Commands& commands) {
  Commands user = commands.AddGroup("user", "List, show and change the accounts of the appliance");
  const auto [list, listed] = user.Add("list", "List the accounts", ListUsers);
  console::AddJson(list, listed.json);
  const auto [show, shown] = AddUserCommand(user, "show", "Show an account", ShowUser);
  console::AddJson(show, shown.json);
  const auto [add, added] = AddUserCommand(user, "add", "Add an account, turned on", AddUser);
  AddTexts(add, added)
      ->description("Read its password from the first line of a file (default: ask)");
  const auto [edit, edited] = AddUserCommand(user, "edit", "Change an account", EditUser);
  edit->add_flag("--new-password", edited.askPassword, "Ask for its new password")
      ->excludes(AddTexts(edit, edited));
  const auto [rename, renamed] = AddUserCommand(user, "rename", "Rename an account", RenameUser);
  AddName(rename, "new", renamed.newName, "The new name");
  AddUserCommand(user, "on", "Turn on an account", Switch<true>);
  AddUserCommand(user, "off", "Turn off an account", Switch<false>);
  const auto [remove, removed] =
      AddUserCommand(user, "delete", "Delete an account and its log", DeleteUser);
  console::AddConsent(remove, removed.consent);
}

void AddPrinterCommands(Commands& commands) {
  Commands printer = commands.AddGroup("printer", "List printers and set the default printer");
  const auto [list, listed] = printer.Add("list", "List the printers", ListPrinters);
  console::AddJson(list, listed.json);
  const auto [models, read] = printer.Add("models", "List the printer models", ListModels);
  console::AddJson(models, read.json);
  const auto [select, selected] =
      printer.Add("default", "Show or set the default printer", DefaultPrinter);
  CLI::Option* name =
      AddName(select, "name", selected.name, "The new default printer")->required(false);
  console::AddDryRun(select, selected.consent)->needs(name);
  console::AddJson(select, selected.json);
}

}  // namespace quillctl
