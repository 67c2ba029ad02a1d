#include "simulator/the_appliance.h"

#include <utility>

#include "simulator/environment.h"
#include "simulator/warning.h"

namespace quillbox {
namespace {

Appliance* instance = nullptr;

// Destroys the appliance when the library or the process ends.
struct Destroyer {
  ~Destroyer() {
    if (instance != nullptr) {
      const std::string fault = instance->stateFile.Close(instance->contents);
      if (!fault.empty()) Warn(kStateVariable, fault);
    }
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
    Seed(*instance);
    ReadEnvironment(*instance);
  }
  return *instance;
}

}  // namespace quillbox
