#include "tests/simulator/server_fixture.h"

#include <functional>
#include <map>
#include <optional>
#include <sstream>

namespace quillkit {
namespace {

// The words of a call. Argument 1 follows the name. Each method returns null for a null argument.
class Words {
 public:
  explicit Words(const std::string& call) {
    std::istringstream text(call);
    for (std::string word; text >> word;) words.push_back(word == "''" ? "" : word);
  }

  const std::string& Name() const { return words.front(); }

  char* Text(std::size_t i) {
    return i < words.size() && words[i] != "-" ? words[i].data() : nullptr;
  }

  ABIdent* Book(std::size_t i) {
    if (Text(i) == nullptr) return nullptr;
    const std::string& word = words[i];
    return &book.emplace(static_cast<BookKind>(std::stoul(word)), word.substr(word.find(':') + 1));
  }

  EntryKey* Key(std::size_t i) {
    return Text(i) != nullptr ? &key.emplace(std::string_view(words[i])) : nullptr;
  }

  void* Record(std::size_t i) {
    if (Text(i) == nullptr) return nullptr;
    record = words[i];
    record.resize(2000);  // longer than any record
    return record.data();
  }

 private:
  std::vector<std::string> words;
  std::optional<ABIdent> book;
  std::optional<EntryKey> key;
  std::string record;
};

Status LogIn(Words& words) {
  LoginRecord login;
  login.user.Assign(words.Text(1));
  login.password.Assign(words.Text(2));
  return IMSPLogin(&login, nullptr, 0);
}

Status Control(Words& words) {
  if (words.Text(1) == nullptr) return IMSPIOCtl(nullptr);
  IOCtlRecord record{static_cast<IOCtlCode>(std::stoi(words.Text(1))), 0, words.Text(2)};
  return IMSPIOCtl(&record);
}

}  // namespace

Status Call(const std::string& call) {
  static const std::map<std::string, std::function<Status(Words&)>> calls = {
      {"Abort", [](Words&) { return IMSPAbort(); }},
      {"BatchConfiguration", [](Words& w) { return IMSPBatchConfiguration(w.Text(1)); }},
      {"ChangeIdentity", [](Words& w) { return IMSPChangeIdentity(w.Key(1)); }},
      {"CheckString", [](Words& w) { return IMSPCheckString(w.Text(1), std::stoi(w.Text(2))); }},
      {"ClearAB", [](Words& w) { return IMSPClearAB(w.Book(1), w.Text(2)); }},
      {"CreateAB", [](Words& w) { return IMSPCreateAB(w.Book(1)); }},
      {"CreateEntry", [](Words& w) { return IMSPCreateEntry(w.Book(1), w.Record(2)); }},
      {"DeleteAB", [](Words& w) { return IMSPDeleteAB(w.Book(1)); }},
      {"DeleteEntry", [](Words& w) { return IMSPDeleteEntry(w.Book(1), w.Key(2)); }},
      {"IOCtl", Control},
      {"Import", [](Words&) { return IMSPImport(0, 0, 0); }},
      {"Login", LogIn},
      {"Logout", [](Words&) { return IMSPLogout(); }},
      {"ModifyEntry", [](Words& w) { return IMSPModifyEntry(w.Book(1), w.Key(2), w.Record(3)); }},
      {"ReadEntryProperties",
       [](Words& w) { return IMSPReadEntryProperties(w.Book(1), w.Key(2), w.Record(3)); }},
      {"SizeofAB",
       [](Words& w) {
         std::uint32_t count = 0;
         return IMSPSizeofAB(w.Book(1), w.Text(2), &count);
       }},
      {"Terminate", [](Words&) { return IMSPTerminate(); }},
      {"Wakeup", [](Words&) { return IMSPWakeup(); }},
  };
  Words words(call);
  return calls.at(words.Name())(words);
}

}  // namespace quillkit
