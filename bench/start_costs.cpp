// One session from the start of a process to the name of the first key:
//
//   start_costs library LIBRARY    through the shared library, loaded by name
//   start_costs hand LIBRARY       through the server library, loaded by name
//
// Both variants are in one program, because bench/compare measures the whole process.

#include <dlfcn.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include "bridge/imsp_api.h"
#include "toolkit/quillkit.h"

namespace quillkit {
namespace {

void Require(bool condition, const char* what) {
  if (condition) return;
  std::fprintf(stderr, "%s failed\n", what);
  std::exit(1);
}

void* Load(const char* library) {
  void* module = dlopen(library, RTLD_NOW | RTLD_LOCAL);
  Require(module != nullptr, library);
  return module;
}

template <class Function>
Function* Find(void* module, const char* name) {
  void* function = dlsym(module, name);
  Require(function != nullptr, name);
  return reinterpret_cast<Function*>(function);
}

#define FIND(module, function) Find<decltype(function)>(module, #function)

std::string FirstKeyOfLibrary(const char* library) {
  void* module = Load(library);
  CScanner* scanner = FIND(module, LogToQuillbox)("127.0.0.1", "ADMINISTRATOR", "quill", "", 1);
  Require(scanner != nullptr, "LogToQuillbox");
  CTopLevelAB* keys = FIND(module, GetTopLevelAbook)(scanner);
  return FIND(module, GetKeyName)(FIND(module, GetKeyAt)(keys, 0));
}

std::string FirstKeyByHand(const char* library) {
  void* module = Load(library);
  Require(FIND(module, IMSPInit)() == 0, "IMSPInit");
  LoginRecord login;
  login.address = 0x0100007F;
  login.user.Assign("ADMINISTRATOR");
  login.password.Assign("quill");
  std::array<char, 256> identity{};
  Require(FIND(module, IMSPLogin)(&login, identity.data(), 256) == 0, "IMSPLogin");
  ABIdent users(BookKind::kUsers, kUsersBook);
  EntryKey user("ADMINISTRATOR");
  CUserEntry record;
  Require(FIND(module, IMSPReadEntryProperties)(&users, &user, &record) == 0, "the account");

  static std::array<EntryKey, 11> names;
  static std::array<std::array<CMenuItem, 512>, 11> items;
  ABIdent panel(BookKind::kTop, {});
  KeyRange range({}, "*");
  auto count = static_cast<std::uint32_t>(names.size());
  Require(FIND(module, IMSPListABEntries)(&panel, &range, names.data(), &count, 1) == 0,
          "the keys");
  auto* const read = FIND(module, IMSPReadAB);
  for (std::size_t i = 0; i < count; ++i) {
    ABIdent key(BookKind::kKeyItems, names[i].name.View());
    auto delivered = static_cast<std::uint32_t>(items[i].size());
    Require(read(&key, &range, items[i].data(), &delivered, 1) == 0, "the items");
  }
  return std::string(names[0].name.View());
}

}  // namespace
}  // namespace quillkit

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fputs("usage: start_costs library|hand LIBRARY\n", stderr);
    return 2;
  }
  const bool isByHand = std::string_view(argv[1]) == "hand";
  std::puts((isByHand ? quillkit::FirstKeyByHand(argv[2]) : quillkit::FirstKeyOfLibrary(argv[2]))
                .c_str());
  std::fflush(stdout);
  std::_Exit(0);  // the end of the session is not measured
}
