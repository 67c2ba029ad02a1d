// The simulated appliance: its books, log and session, and the settings that make it fail or send
// wrong replies.

#ifndef QUILLKIT_SIMULATOR_APPLIANCE_H_
#define QUILLKIT_SIMULATOR_APPLIANCE_H_

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "simulator/faults.h"
#include "simulator/journal.h"
#include "simulator/journal_file.h"
#include "simulator/limits.h"
#include "simulator/log_book.h"
#include "simulator/reply_defects.h"
#include "simulator/run_report.h"
#include "simulator/session.h"
#include "simulator/state_file.h"
#include "simulator/store.h"

namespace quillbox {

// The settings of the SimulatorSet... functions.
struct ApplianceSettings {
  std::string identity = "Quillbox 40 - 3.1 - K7";
  std::string serverText;
  bool hasServerText = true;
  std::uint32_t timeout = 30'000;  // of a new session; all times in milliseconds
  std::uint32_t wakeupPeriod = 60'000;
  std::uint32_t latency = 0;
  std::map<std::string, std::uint32_t, std::less<>> latencies;  // by entry point, instead
  std::uint32_t clockStep = 0;  // by which a call advances the clock
  Limits limits;
};

class Appliance {
 public:
  Contents contents;
  LogBook log;
  Session session;
  ApplianceSettings settings;
  std::uint32_t timeout = settings.timeout;  // of calls, in milliseconds
  Clock clock;
  Journal journal;
  Faults faults;
  bool mayHaveUnfiredFaults = false;
  ReplyDefects defects;
  bool isInitialised = false;  // between IMSPInit and IMSPTerminate
  StateFile stateFile;
  JournalFile journalFile;
  RunReport report;
  bool isLenient = false;        // continue after mistakes in the configuration and failing files
  bool isMisconfigured = false;  // every call fails

  // Restores the initial state, except `isInitialised`, the three files and the flags after them.
  void Reset();

  // Gives the contents to this process alone, with the changes of other processes, until EndChange.
  // Returns nothing, or the status of a call that cannot be served.
  std::optional<Status> BeginChange();

  // Saves what changed. Returns the status of the call, or that of a change that cannot be saved.
  Status EndChange(Status status);

  bool IsRecording() const { return journal.IsRecording() || journalFile.IsOpen(); }

  // Returns whether the session is open. First drops a session that made no call for too long.
  bool HasSession() { return session.IsOpen(clock, settings.wakeupPeriod); }

  // The path of a book as the session names it.
  BookPath PathOf(const ABIdent& book) const {
    BookPath path{book.kind, {}, session.User()};
    path.name.name = book.name;
    return path;
  }
};

// Adds a small office to a store in its initial state.
void Seed(Store& store);

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_APPLIANCE_H_
