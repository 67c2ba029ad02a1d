#include "console/program.h"

#include <exception>
#include <iostream>

#include "console/failure.h"
#include "console/system/deferred_termination.h"

namespace console {
namespace {

const char* programName = "";

int PrintError(const char* text, int status) {
  std::cout.flush();
  std::cerr << programName << ": " << text << '\n';
  return status;
}

}  // namespace

int RunProgram(const char* name, const std::function<int()>& work) {
  programName = name;
  try {
    const int status = work();
    if (std::cout.flush()) {
      if (status == kExitSuccess) TerminateIfRequested();
      return status;
    }
    return PrintError("cannot write to standard output; the command itself was executed",
                      kExitRefused);
  } catch (const Failure& error) {
    return PrintError(error.what(), error.ExitStatus());
  } catch (const std::exception& error) {
    return PrintError(error.what(), kExitRefused);
  }
}

const char* ProgramName() {
  return programName;
}

}  // namespace console
