// Configures the appliance from environment variables.

#ifndef QUILLKIT_SIMULATOR_ENVIRONMENT_H_
#define QUILLKIT_SIMULATOR_ENVIRONMENT_H_

namespace quillbox {

class Appliance;

// Each variable (simulator/warning.h) may be missing or empty. A mistake is reported on standard
// error, and every call fails.
void ReadEnvironment(Appliance& appliance);

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_ENVIRONMENT_H_
