#include "simulator/the_appliance.h"

#include <utility>

#include "simulator/environment.h"
#include "simulator/warning.h"

namespace quillbox {
namespace {

Appliance* instance = nullptr;

void Finish(Appliance& appliance) {
  const std::string failure = appliance.stateFile.Close(appliance.contents);
  if (!failure.empty()) Warn(kStateVariable, failure);
  if (appliance.mayHaveUnfiredFaults || appliance.isLenient || appliance.report.IsOpen()) return;
  for (const std::string& each : appliance.faults.Unfired()) {
    Warn("unfired fault", each);
  }
}

// Destroys the appliance when the library or the process ends.
struct Destroyer {
  ~Destroyer() {
    if (instance != nullptr) Finish(*instance);
    delete std::exchange(instance, nullptr);
  }
};
const Destroyer destroyer;

}  // namespace

// The static objects of this library can be destroyed before those of its callers. A later call
// creates a new appliance.
Appliance& TheAppliance() {
  if (instance == nullptr) {
    instance = new Appliance;
    Seed(instance->contents.store);
    ReadEnvironment(*instance);
  }
  return *instance;
}

}  // namespace quillbox
