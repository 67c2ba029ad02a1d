// The appliance of this process.

#ifndef QUILLKIT_SIMULATOR_THE_APPLIANCE_H_
#define QUILLKIT_SIMULATOR_THE_APPLIANCE_H_

#include "simulator/appliance.h"

namespace quillbox {

// Created by the first call: seeded, then configured from the environment.
Appliance& TheAppliance();

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_THE_APPLIANCE_H_
