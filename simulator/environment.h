// Setting up the appliance from the variables of the environment.

#ifndef QUILLKIT_SIMULATOR_ENVIRONMENT_H_
#define QUILLKIT_SIMULATOR_ENVIRONMENT_H_

namespace quillbox {

class Appliance;

// Each variable (simulator/warning.h) may be absent or empty.
void ReadEnvironment(Appliance& appliance);

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_ENVIRONMENT_H_
