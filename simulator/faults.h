// Failures of later calls.

#ifndef QUILLKIT_SIMULATOR_FAULTS_H_
#define QUILLKIT_SIMULATOR_FAULTS_H_

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/call_facts.h"
#include "simulator/protocol.h"

namespace quillbox {

// What a fault does to a call.
struct FaultEffect {
  std::optional<Status> status;  // the call does nothing and returns this
  bool isReplyLost = false;      // the call does its work and returns 19
  bool isSessionLost = false;    // the session is closed before the call
  std::uint32_t delay = 0;       // milliseconds before the call
  std::uint32_t defects = 0;     // SimulatorDefect, for this call
};

// The calls that a fault applies to, and its effect.
struct Fault {
  static constexpr std::uint32_t kEver = std::numeric_limits<std::uint32_t>::max();

  std::string text;                 // for reports
  std::string entryPoint;           // "": any
  BookKind kind = BookKind::kNone;  // kNone: any
  std::optional<std::string> book, name, account;
  std::uint64_t after = 0;  // the earliest time
  std::uint32_t first = 1;  // of the calls that match so far
  std::uint32_t last = kEver;
  double probability = 1;
  FaultEffect effect;
};

class Faults {
 public:
  void Add(Fault fault, std::uint32_t seed = 0);

  // Makes a call of this entry point return a status. An empty name means any entry point.
  // Occurrence 1 is the next call; 0 means every call.
  void Add(std::string_view entryPoint, std::int32_t occurrence, Status status);

  void Clear() { pending.clear(); }

  // Counts a call for every fault that matches it. Returns the first fault that is due, or null.
  // Another one that is due does not fire.
  const Fault* CountCall(const CallFacts& call);

  // The faults that have not fired.
  std::vector<std::string> Unfired() const;

 private:
  struct Counted {
    Fault fault;
    std::uint64_t random = 0;  // the state of its random numbers
    std::uint32_t calls = 0;
    bool hasFired = false;
  };

  static bool IsDue(Counted& each);

  std::vector<Counted> pending;
  Fault fired;
};

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_FAULTS_H_
