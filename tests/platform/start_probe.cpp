// A program that loads the library as an application does and tells what came of it. It holds no
// server library of its own, so that it can be run where there is none.
//
// usage: quillkit_start_probe load   the message boxes, whether the library was loaded, what is
// left
//        quillkit_start_probe end    logs in and ends without a word to the library

#include <cstdio>
#include <string_view>

#include "platform/module.h"
#include "tests/platform/system.h"
#include "toolkit/quillkit.h"

namespace quillkit {
namespace {

template <class Function>
Function* Entry(ModuleHandle library, const char* name) {
  return reinterpret_cast<Function*>(FindEntryPoint(library, name));
}

CScanner* LogIn(ModuleHandle library) {
  return Entry<decltype(LogToQuillbox)>(library, "LogToQuillbox")("127.0.0.1", "TOOLKIT", "KELP",
                                                                  "", 0);
}

int Load() {
  ReportMessageBoxes();
  ModuleHandle library = LoadModule("Quillkit");
  std::puts(library != nullptr ? "loaded" : "refused");
  if (library != nullptr) {
    LogIn(library);
    std::printf("status %d\n",
                Entry<decltype(GetLastToolkitError)>(library, "GetLastToolkitError")());
    UnloadModule(library);
  }
  if (IsLoaded(kLibraryFile)) std::puts("the library is left");
  if (IsLoaded(kServerLibraryFile)) std::puts("the server library is left");
  return 0;
}

int End() {
  ModuleHandle library = LoadModule("Quillkit");
  if (library == nullptr) return 3;
  return LogIn(library) != nullptr ? 0 : 4;
}

}  // namespace
}  // namespace quillkit

int main(int argc, char** argv) {
  const std::string_view what = argc == 2 ? argv[1] : "";
  std::setvbuf(stdout, nullptr, _IONBF, 0);  // in order with the message boxes
  if (what == "load") return quillkit::Load();
  if (what == "end") return quillkit::End();
  return 2;
}
