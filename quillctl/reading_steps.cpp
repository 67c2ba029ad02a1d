#include <algorithm>
#include <memory>

#include "console/displayed_text.h"
#include "platform/module.h"
#include "quillctl/check_command.h"
#include "quillctl/failures.h"
#include "quillctl/info_command.h"
#include "quillctl/key_set.h"

namespace quillctl {
namespace {

// The entry points that the exported functions call.
constexpr const char* kEntryPoints[] = {
    "IMSPInit",
    "IMSPTerminate",
    "IMSPLogin",
    "IMSPLogout",
    "IMSPWakeup",
    "IMSPIOCtl",
    "IMSPReadAB",
    "IMSPReadEntryProperties",
    "IMSPSizeofAB",
    "IMSPListABEntries",
    "IMSPDeleteAB",
    "IMSPCreateEntry",
    "IMSPModifyEntry",
    "IMSPDeleteEntry",
    "IMSPBatchConfiguration",
};

std::string LoadServerLibrary(CheckRun&) {
  struct Unload {
    void operator()(void* module) const { quillkit::UnloadModule(module); }
  };
  const std::unique_ptr<void, Unload> module(quillkit::LoadModule("IMSPAPI"));
  if (module == nullptr) throw Refusal("not found, or cannot be loaded");
  std::string missing;
  for (const char* each : kEntryPoints) {
    if (quillkit::FindEntryPoint(module.get(), each) == nullptr) missing += std::string(" ") + each;
  }
  if (!missing.empty()) throw Refusal("missing entry points:" + missing);
  return "it has all " + console::Counted(std::size(kEntryPoints), "entry point");
}

std::string LogIn(CheckRun& check) {
  return console::Quoted(check.LogIn().User());
}

std::string ReadIdentity(CheckRun& check) {
  quillkit::CScanner* scanner = check.OpenSession().Scanner();
  const std::string model = quillkit::GetScannerModel(scanner);
  const std::string version = quillkit::GetScannerVersion(scanner);
  if (model.empty() || version.empty()) throw Refusal("the server reports no model or no version");
  return console::Quoted(model) + ", version " + console::Quoted(version) + ", at " +
         DottedAddress(quillkit::GetScannerAddress(scanner));
}

std::string ReadRights(CheckRun& check) {
  const Session& session = check.OpenSession();
  if (quillkit::GetCurrentConnectedUser(session.Scanner()) == nullptr) {
    throw Refusal("the library reports no user");
  }
  const bool isAdmin = quillkit::IsAdminConnected(session.Scanner()) != 0;
  if (isAdmin != (session.User() == kAdministrator))
    throw Refusal("the rights are those of another account");
  return isAdmin ? "administrator" : "not administrator";
}

void RequireBook(const Session& session) {
  if (quillkit::GetTopLevelAbook(session.Scanner()) == nullptr) {
    throw Skip("this account cannot manage soft keys");
  }
}

std::string ListKeys(CheckRun& check) {
  const Session& session = check.OpenSession();
  RequireBook(session);
  quillkit::CTopLevelAB* book = session.LoadKeys(false);
  std::vector<std::string> names;
  for (std::int32_t i = 0; i < quillkit::GetCount(book); ++i) {
    names.emplace_back(quillkit::GetKeyName(quillkit::GetKeyAt(book, i)));
    if (names.back().empty()) throw Refusal("a key has no name");
    if (std::ranges::count(names, names.back()) > 1) {
      throw Refusal("two keys have the name " + console::Quoted(names.back()));
    }
  }
  check.SetListedNames(names);
  return console::Counted(names.size(), "key");
}

// Reads the keys and their items, and keeps them for later steps.
std::string ReadItems(CheckRun& check) {
  RequireBook(check.OpenSession());
  KeySet keys = ReadKeySet(check.OpenSession());
  if (!std::ranges::equal(keys, check.ListedNames(), {}, &KeyFields::name)) {
    throw Refusal("the keys differ from those listed before");
  }
  std::size_t items = 0;
  for (const KeyFields& each : keys) items += each.items.size();
  check.SetKeys(std::move(keys));
  return console::Counted(items, "item") + "; the server reports the same number";
}

std::string ReadKeyByKey(CheckRun& check) {
  const KeySet& keys = check.Keys();
  quillkit::CTopLevelAB* book = check.OpenSession().LoadKeys(true);
  for (const KeyFields& each : keys) {
    quillkit::CSoftKey* key = quillkit::LoadItems(book, each.name);
    const std::int32_t status = quillkit::GetLastToolkitError();
    const bool isGood = status == 0 || (status == quillkit::kDataNotFound && each.items.empty());
    if (key == nullptr || !isGood)
      throw Refusal(console::Quoted(each.name) + ": " + CodeAndText(status));
    if (ItemsOf(key) != each.items)
      throw Refusal(console::Quoted(each.name) + " now has other items");
  }
  return {};
}

std::string ReadAgain(CheckRun& check) {
  check.RequireUnchangedKeys();
  return {};
}

std::string ReadUnknownKey(CheckRun& check) {
  quillkit::CTopLevelAB* book = check.OpenSession().Book();
  RequireUnknown(book, FreeName(book));
  return "refused with " + CodeAndText(quillkit::kNoSuchBook);
}

std::string LogInAgain(CheckRun& check) {
  check.Keys();
  check.OpenSession().LogIn();
  check.RequireUnchangedKeys();
  return {};
}

std::string LogOut(CheckRun& check) {
  Session& session = check.OpenSession();
  session.LogOut();
  if (quillkit::GetCurrentConnectedUser(nullptr) != nullptr)
    throw Refusal("a user is still logged in");
  return {};
}

}  // namespace

std::vector<Step> ReadingSteps() {
  return {
      {"load the server library", LoadServerLibrary},
      {"log in", LogIn},
      {"read the appliance's identity", ReadIdentity},
      {"read the account's rights", ReadRights},
      {"list the keys", ListKeys},
      {"read the items", ReadItems},
      {"read the items key by key", ReadKeyByKey},
      {"read all again", ReadAgain},
      {"read a key that does not exist", ReadUnknownKey},
      {"log in again", LogInAgain},
  };
}

std::vector<Step> ClosingSteps() {
  return {{"log out", LogOut}};
}

}  // namespace quillctl
