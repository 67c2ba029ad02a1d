// Failures of later calls.

#ifndef QUILLKIT_SIMULATOR_FAULTS_H_
#define QUILLKIT_SIMULATOR_FAULTS_H_

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/protocol.h"

namespace quillbox {

class Faults {
 public:
  // Makes a call of this entry point fail. An empty `entry` means any entry point. Occurrence 1 is
  // the next call; 0 means every call.
  void Add(std::string_view entry, std::int32_t occurrence, Status status);
  void Clear() { pending.clear(); }

  // Counts a call for every pending fault that matches it. Returns the status of the first fault
  // that is due. Removes the due faults, except those of every call (occurrence 0).
  std::optional<Status> CountCall(std::string_view entry);

 private:
  struct Fault {
    std::string entry;
    std::int32_t calls = 0;  // calls until it is due; 0: every call
    Status status = kNoError;
  };

  std::vector<Fault> pending;
};

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_FAULTS_H_
