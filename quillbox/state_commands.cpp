#include <filesystem>
#include <fstream>
#include <iostream>
#include <system_error>

#include "platform/written_file.h"
#include "quillbox/appliance_dump.h"
#include "quillbox/commands.h"
#include "quillbox/failure.h"
#include "simulator/scenario.h"
#include "simulator/state_file.h"
#include "simulator/state_text.h"

namespace quillbox {

void Dump(const DumpOptions& options) {
  Contents contents;
  if (options.source.empty()) {
    ReadAppliance(options, contents.store);
  } else {
    Require(options.source, ReadStateFile(options.source, contents));
  }
  const std::string text =
      StateText(contents, options.passwords ? Passwords::kShown : Passwords::kHidden);
  if (options.output.empty()) {
    std::cout << text;
  } else if (!quillkit::WriteFileWhole(options.output, text, quillkit::Readers::kOwner)) {
    throw CommandFailure("cannot write " + options.output);
  }
}

void Load(const std::string& source, const std::string& state) {
  Contents loaded;
  Require("load", ReadBeginning(source, loaded));
  Contents contents = loaded;
  StateFile file;
  Require(state, file.Open(state, contents));
  contents = loaded;
  contents.store.MarkWhole();
  Require(state, file.Begin(contents));
  Require(state, file.End(contents));
}

void Check(const std::string& path) {
  Scenario scenario;
  Require(path, ReadScenario(path, scenario), kExitUsage);
  Contents contents;
  Require(path, ReadBeginning(scenario.begin, contents), kExitUsage);
  std::error_code failure;
  if (std::filesystem::exists(scenario.state, failure)) {
    contents = {};
    Require(path + ": " + scenario.state, ReadStateFile(scenario.state, contents), kExitUsage);
  }
  std::cout << path << ": valid; faults: " << scenario.faults.size() << '\n';
}

}  // namespace quillbox
