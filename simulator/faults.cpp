#include "simulator/faults.h"

#include <algorithm>
#include <utility>

namespace quillbox {
namespace {

bool Allows(const std::optional<std::string>& condition, std::string_view value) {
  return !condition || *condition == value;
}

bool Matches(const Fault& fault, const CallFacts& call) {
  return (fault.entryPoint.empty() || fault.entryPoint == call.entryPoint) &&
         (fault.kind == BookKind::kNone || fault.kind == call.kind) &&
         Allows(fault.book, call.book) && Allows(fault.name, call.name) &&
         Allows(fault.account, call.account) && call.time >= fault.after;
}

// Returns the next number from 0 to below 1 of the generator SplitMix64: the same everywhere.
double NextRandom(std::uint64_t& state) {
  state += 0x9E3779B97F4A7C15;
  std::uint64_t bits = state;
  bits = (bits ^ (bits >> 30)) * 0xBF58476D1CE4E5B9;
  bits = (bits ^ (bits >> 27)) * 0x94D049BB133111EB;
  bits ^= bits >> 31;
  return static_cast<double>(bits >> 11) / 9007199254740992.0;  // 53 bits
}

}  // namespace

void Faults::Add(Fault fault, std::uint32_t seed) {
  const std::uint64_t random = std::uint64_t{seed} << 32 | pending.size();
  pending.push_back({std::move(fault), random, 0, false});
}

void Faults::Add(std::string_view entryPoint, std::int32_t occurrence, Status status) {
  Fault fault;
  fault.entryPoint = entryPoint;
  if (occurrence > 0) fault.first = fault.last = static_cast<std::uint32_t>(occurrence);
  fault.effect.status = status;
  fault.text = (entryPoint.empty() ? "*" : fault.entryPoint) + ':' +
               std::to_string(std::max(occurrence, std::int32_t{0})) + '=' + std::to_string(status);
  Add(std::move(fault));
}

const Fault* Faults::CountCall(const CallFacts& call) {
  const Fault* taken = nullptr;
  std::erase_if(pending, [&](Counted& each) {
    if (!Matches(each.fault, call) || !IsDue(each)) return false;
    const bool isLast = each.calls == each.fault.last;
    if (taken != nullptr) return false;
    each.hasFired = true;
    fired = each.fault;
    taken = &fired;
    return isLast;
  });
  return taken;
}

// Counts a call that matches.
bool Faults::IsDue(Counted& each) {
  const Fault& fault = each.fault;
  if (each.calls == Fault::kEver || ++each.calls < fault.first || each.calls > fault.last) {
    return false;
  }
  return NextRandom(each.random) < fault.probability;
}

std::vector<std::string> Faults::Unfired() const {
  std::vector<std::string> texts;
  for (const Counted& each : pending) {
    if (!each.hasFired) texts.push_back(each.fault.text);
  }
  return texts;
}

}  // namespace quillbox
