#include "simulator/faults.h"

#include <algorithm>

namespace quillbox {

void Faults::Add(std::string_view entry, std::int32_t occurrence, Status status) {
  pending.push_back({std::string(entry), std::max(occurrence, std::int32_t{0}), status});
}

std::optional<Status> Faults::CountCall(std::string_view entry) {
  std::optional<Status> taken;
  std::erase_if(pending, [&](Fault& fault) {
    if (!fault.entry.empty() && fault.entry != entry) return false;
    const bool isEach = fault.calls == 0;
    if (!isEach && --fault.calls != 0) return false;
    if (!taken) taken = fault.status;
    return !isEach;
  });
  return taken;
}

}  // namespace quillbox
