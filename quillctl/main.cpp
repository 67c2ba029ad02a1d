// quillctl: the command-line tool. It uses the class library.

#include <iostream>

#include "quillctl/command_line.h"
#include "quillctl/failures.h"
#include "toolkit/toolkit_app.h"

namespace quillctl {
namespace {

// Starts the class library and stops it in the destructor. A failed start is reported; every server
// call then returns status 20.
class RunningLibrary {
 public:
  RunningLibrary() {
    if (!quillkit::CToolkitApp::Start()) quillkit::CToolkitApp::Stop();
  }
  RunningLibrary(const RunningLibrary&) = delete;
  RunningLibrary& operator=(const RunningLibrary&) = delete;
  ~RunningLibrary() { quillkit::CToolkitApp::Stop(); }
};

int PrintError(const char* text, int status) {
  std::cout.flush();
  std::cerr << "quillctl: " << text << '\n';
  return status;
}

// Returns kExitSuccess, or kExitRefused if the output of the command could not be written.
int StatusOfOutput() {
  std::cout.flush();
  if (std::cout) return kExitSuccess;
  return PrintError("cannot write to standard output; the command itself was executed",
                    kExitRefused);
}

}  // namespace
}  // namespace quillctl

int main(int argc, char** argv) {
  const quillctl::RunningLibrary library;
  try {
    quillctl::RunCommandLine(argc, argv);
    return quillctl::StatusOfOutput();
  } catch (const quillctl::Failure& error) {
    return quillctl::PrintError(error.what(), error.ExitStatus());
  } catch (const std::exception& error) {
    return quillctl::PrintError(error.what(), quillctl::kExitRefused);
  }
}
