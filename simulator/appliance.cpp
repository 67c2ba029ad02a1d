#include "simulator/appliance.h"

#include <utility>

#include "simulator/environment.h"

namespace quillkit {
namespace {

Appliance* instance = nullptr;

// Ends the appliance with the library, or with the process.
struct Ending {
  ~Ending() {
    if (instance != nullptr) instance->SaveChange();
    delete std::exchange(instance, nullptr);
  }
};
const Ending ending;

}  // namespace

void Appliance::Reset() {
  Appliance fresh;
  fresh.isInitialised = isInitialised;
  fresh.stateFile = std::move(stateFile);
  fresh.journalFile = std::move(journalFile);
  *this = std::move(fresh);
}

// A process may end this library before the one that calls it: such a late call finds an appliance
// that knows nothing of it, instead of one that is gone.
Appliance& TheAppliance() {
  if (instance == nullptr) {
    instance = new Appliance;
    Seed(*instance);
    ReadEnvironment(*instance);
  }
  return *instance;
}

}  // namespace quillkit
