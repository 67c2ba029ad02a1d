// Runs a fuzz target without a fuzzer, built by any compiler for any system.
//
// usage: fuzz_TARGET FOLDER
//
// Each file of the folder is an input. Prints the names of those that pass, and is aborted at the
// first one that does not. Exits with 1 if the folder is empty.

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <set>
#include <string>

#include "tests/support/scratch_folder.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int count, char** arguments) {
  namespace fs = std::filesystem;
  if (count != 2) return 2;
  std::set<fs::path> seeds;
  for (const auto& each : fs::directory_iterator(arguments[1])) seeds.insert(each.path());
  for (const fs::path& each : seeds) {
    const std::string input = quillkit::ReadBytes(each.string());
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
    std::printf("%s\n", each.filename().string().c_str());
    std::fflush(stdout);
  }
  return seeds.empty() ? 1 : 0;
}
