#include "simulator/appliance.h"

#include <utility>

namespace quillkit {
namespace {

Appliance* instance = nullptr;

// Ends the appliance with the library, or with the process.
struct Ending {
  ~Ending() { delete std::exchange(instance, nullptr); }
};
const Ending ending;

}  // namespace

void Appliance::Reset() {
  const bool wasInitialised = isInitialised;
  *this = Appliance();
  isInitialised = wasInitialised;
}

// A process may end this library before the one that calls it: such a late call finds an appliance
// that knows nothing of it, instead of one that is gone.
Appliance& TheAppliance() {
  if (instance == nullptr) {
    instance = new Appliance;
    Seed(*instance);
  }
  return *instance;
}

}  // namespace quillkit
