#include <filesystem>
#include <iostream>
#include <system_error>

#include "console/text_file.h"
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
  console::WriteOutput(
      options.output,
      StateText(contents, options.passwords ? Passwords::kShown : Passwords::kHidden),
      quillkit::Readers::kOwner);
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
  Require(path, ReadScenario(path, scenario), console::kExitUsage);
  Contents contents;
  Require(path, ReadBeginning(scenario.begin, contents), console::kExitUsage);
  std::error_code failure;
  if (std::filesystem::exists(scenario.state, failure)) {
    contents = {};
    Require(path + ": " + scenario.state, ReadStateFile(scenario.state, contents),
            console::kExitUsage);
  }
  std::cout << path << ": valid; faults: " << scenario.faults.size() << '\n';
}

}  // namespace quillbox
