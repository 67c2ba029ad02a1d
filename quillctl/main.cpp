// quillctl: the command-line tool. It uses the class library.

#include "console/failure.h"
#include "console/program.h"
#include "quillctl/command_line.h"
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

}  // namespace
}  // namespace quillctl

int main(int argc, char** argv) {
  const quillctl::RunningLibrary library;
  return console::RunProgram("quillctl", [&] {
    quillctl::RunCommandLine(argc, argv);
    return console::kExitSuccess;
  });
}
