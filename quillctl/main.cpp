// quillctl: an application of Quillkit. What it says to an appliance goes through the exported
// functions alone.

#include <iostream>

#include "quillctl/command_line.h"
#include "quillctl/failures.h"

namespace quillctl {
namespace {

int Report(const char* text, int status) {
  std::cout.flush();
  std::cerr << "quillctl: " << text << '\n';
  return status;
}

int Run(int argc, const char* const* argv) {
  const CommandLine line = ParseCommandLine(argc, argv);
  if (line.action) line.action(line.credentials);
  return kExitGood;
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
  try {
    return quillctl::Ended(quillctl::Run(argc, argv));
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
