// A program that loads the library like an application, logs in, and prints the results. It
// contains no server library, so that it also runs without one.
//
// usage: quillkit_start_probe         unloads the library, and prints what is still loaded
//        quillkit_start_probe stay    ends in the session, without unloading the library

#include <cstdio>

#include "platform/module.h"
#include "tests/platform/process.h"
#include "toolkit/quillkit.h"

namespace quillkit {
namespace {

int Run(bool stays) {
  ReportMessageBoxes();
  ModuleHandle library = LoadModule("Quillkit");
  std::puts(library != nullptr ? "loaded" : "refused");
  if (library != nullptr) {
    auto* logIn =
        reinterpret_cast<decltype(&LogToQuillbox)>(FindEntryPoint(library, "LogToQuillbox"));
    auto* lastError = reinterpret_cast<decltype(&GetLastToolkitError)>(
        FindEntryPoint(library, "GetLastToolkitError"));
    logIn("127.0.0.1", "TOOLKIT", "KELP", "", 0);
    std::printf("status %d\n", lastError());
    if (stays) return 0;
    UnloadModule(library);
  }
  if (IsLoaded(kLibraryFile)) std::puts("the library is still loaded");
  if (IsLoaded(kServerLibraryFile)) std::puts("the server library is still loaded");
  return 0;
}

}  // namespace
}  // namespace quillkit

int main(int argc, char**) {
  std::setvbuf(stdout, nullptr, _IONBF, 0);  // in order with the message boxes
  return quillkit::Run(argc > 1);
}
