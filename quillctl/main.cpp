// quillctl: the command-line tool, a program on the class library.

#include <iostream>

#include "quillctl/command_line.h"
#include "quillctl/failures.h"
#include "toolkit/toolkit_app.h"

namespace quillctl {
namespace {

// The class library, started while this object lives. A failed start is shown; every call to the
// server then has status 20.
class RunningLibrary {
 public:
  RunningLibrary() {
    if (!quillkit::CToolkitApp::Start()) quillkit::CToolkitApp::Stop();
  }
  RunningLibrary(const RunningLibrary&) = delete;
  RunningLibrary& operator=(const RunningLibrary&) = delete;
  ~RunningLibrary() { quillkit::CToolkitApp::Stop(); }
};

int Report(const char* text, int status) {
  std::cout.flush();
  std::cerr << "quillctl: " << text << '\n';
  return status;
}

// The status, unless what the command shows could not be written.
int Ended(int status) {
  std::cout.flush();
  if (std::cout) return status;
  return Report("cannot write the output; what the command did stands", kExitRefused);
}

}  // namespace
}  // namespace quillctl

int main(int argc, char** argv) {
  const quillctl::RunningLibrary library;
  try {
    quillctl::RunCommandLine(argc, argv);
    return quillctl::Ended(quillctl::kExitGood);
  } catch (const quillctl::UsageError& error) {
    return quillctl::Report(error.what(), quillctl::kExitUsage);
  } catch (const quillctl::PartialFailure& error) {
    return quillctl::Ended(quillctl::Report(error.what(), quillctl::kExitPartly));
  } catch (const quillctl::LoginRefusal& error) {
    return quillctl::Report(error.what(), quillctl::kExitNoLogin);
  } catch (const std::exception& error) {
    return quillctl::Report(error.what(), quillctl::kExitRefused);
  }
}
