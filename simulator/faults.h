// Failures that are to happen at later calls.

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
  // At the call of this entry point, "" for any, whose turn it is: 1 is the next, 0 each one.
  void Add(std::string_view entry, std::int32_t occurrence, Status status);
  void Clear() { waiting.clear(); }

  // Counts a call for every fault that waits for it. The status of the first fault whose turn it
  // is; others whose turn it is too are used up with it.
  std::optional<Status> Take(std::string_view entry);

 private:
  struct Fault {
    std::string entry;
    std::int32_t calls = 0;  // until its turn; 0: at each
    Status status = kNoError;
  };

  std::vector<Fault> waiting;
};

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_FAULTS_H_
