#include <algorithm>
#include <memory>

#include "platform/module.h"
#include "quillctl/check_command.h"
#include "quillctl/displayed_text.h"
#include "quillctl/failures.h"
#include "quillctl/info_command.h"
#include "quillctl/key_set.h"

namespace quillctl {
namespace {

// All that the exported functions call.
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

std::string Counted(std::size_t count, const std::string& what) {
  return std::to_string(count) + ' ' + what + (count == 1 ? "" : "s");
}

std::string FindServerLibrary(Checkup&) {
  struct Unload {
    void operator()(void* module) const { quillkit::UnloadModule(module); }
  };
  const std::unique_ptr<void, Unload> module(quillkit::LoadModule("IMSPAPI"));
  if (module == nullptr) throw Refusal("there is none, or it cannot be loaded");
  std::string missing;
  for (const char* each : kEntryPoints) {
    if (quillkit::FindEntryPoint(module.get(), each) == nullptr) missing += std::string(" ") + each;
  }
  if (!missing.empty()) throw Refusal("it lacks" + missing);
  return "with its " + Counted(std::size(kEntryPoints), "entry point");
}

std::string LogIn(Checkup& checkup) {
  return Quoted(checkup.LogIn().User());
}

std::string AskIdentity(Checkup& checkup) {
  quillkit::CScanner* scanner = checkup.OpenSession().Scanner();
  const std::string model = quillkit::GetScannerModel(scanner);
  const std::string version = quillkit::GetScannerVersion(scanner);
  if (model.empty() || version.empty()) throw Refusal("the server tells no model or no version");
  return Quoted(model) + ", version " + Quoted(version) + ", at " +
         DottedAddress(quillkit::GetScannerAddress(scanner));
}

std::string AskAccount(Checkup& checkup) {
  const Session& session = checkup.OpenSession();
  if (quillkit::GetCurrentConnectedUser(session.Scanner()) == nullptr) {
    throw Refusal("the library knows of no user");
  }
  const bool isAdmin = quillkit::IsAdminConnected(session.Scanner()) != 0;
  if (isAdmin != (session.User() == kAdministrator)) throw Refusal("it has another one's rights");
  return isAdmin ? "an administrator" : "no administrator";
}

void RequireBook(const Session& session) {
  if (quillkit::GetTopLevelAbook(session.Scanner()) == nullptr) {
    throw Skip("this account has no soft keys");
  }
}

std::string ListKeys(Checkup& checkup) {
  const Session& session = checkup.OpenSession();
  RequireBook(session);
  quillkit::CTopLevelAB* book = session.LoadKeys(false);
  std::vector<std::string> names;
  for (std::int32_t i = 0; i < quillkit::GetCount(book); ++i) {
    names.emplace_back(quillkit::GetKeyName(quillkit::GetKeyAt(book, i)));
    if (names.back().empty()) throw Refusal("a key has no name");
    if (std::ranges::count(names, names.back()) > 1) {
      throw Refusal("two keys have the name " + Quoted(names.back()));
    }
  }
  checkup.SetListed(names);
  return Counted(names.size(), "key");
}

// The keys, for the steps behind this one.
std::string ReadItems(Checkup& checkup) {
  RequireBook(checkup.OpenSession());
  KeySet keys = ReadKeySet(checkup.OpenSession());
  if (!std::ranges::equal(keys, checkup.Listed(), {}, &KeyFields::name)) {
    throw Refusal("the keys are not those that were listed before");
  }
  std::size_t items = 0;
  for (const KeyFields& each : keys) items += each.items.size();
  checkup.SetKeys(std::move(keys));
  return Counted(items, "item") + ", as many as the server counts";
}

std::string ReadKeyByKey(Checkup& checkup) {
  const KeySet& keys = checkup.Keys();
  quillkit::CTopLevelAB* book = checkup.OpenSession().LoadKeys(true);
  for (const KeyFields& each : keys) {
    quillkit::CSoftKey* key = quillkit::LoadItems(book, each.name);
    const std::int32_t status = quillkit::GetLastToolkitError();
    const bool isGood = status == 0 || (status == quillkit::kDataNotFound && each.items.empty());
    if (key == nullptr || !isGood) throw Refusal(Quoted(each.name) + ": " + CodeAndText(status));
    if (ItemsOf(key) != each.items) throw Refusal(Quoted(each.name) + " has other items");
  }
  return {};
}

std::string ReadAgain(Checkup& checkup) {
  checkup.RequireSameKeys();
  return {};
}

std::string AskForUnknownKey(Checkup& checkup) {
  quillkit::CTopLevelAB* book = checkup.OpenSession().Book();
  RequireUnknown(book, FreeName(book));
  return "refused with " + CodeAndText(quillkit::kNoSuchBook);
}

std::string LogInAgain(Checkup& checkup) {
  checkup.Keys();
  checkup.OpenSession().LogIn();
  checkup.RequireSameKeys();
  return {};
}

std::string LogOut(Checkup& checkup) {
  Session& session = checkup.OpenSession();
  session.LogOut();
  if (quillkit::GetCurrentConnectedUser(nullptr) != nullptr) throw Refusal("a user is left");
  return {};
}

}  // namespace

std::vector<Step> ReadingSteps() {
  return {
      {"the server library", FindServerLibrary},
      {"log in", LogIn},
      {"the appliance tells what it is", AskIdentity},
      {"the rights of the account", AskAccount},
      {"list the keys", ListKeys},
      {"read the items", ReadItems},
      {"read them key by key", ReadKeyByKey},
      {"read all again", ReadAgain},
      {"a key that is not there", AskForUnknownKey},
      {"log in a second time", LogInAgain},
  };
}

std::vector<Step> ClosingSteps() {
  return {{"log out", LogOut}};
}

}  // namespace quillctl
