#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/scenario.h"
#include "simulator/simulator.h"
#include "simulator/the_appliance.h"

namespace quillbox {
namespace {

BookPath PathOf(BookKind kind, const char* book, const char* user) {
  return {kind, EntryKey::Of(TextOf(book)), TextOf(user)};
}

// Returns the appliance with the changes that other processes made.
Appliance& PresentAppliance() {
  Appliance& appliance = TheAppliance();
  if (!appliance.BeginChange()) appliance.EndChange(kNoError);
  return appliance;
}

std::int32_t CopyLogRecord(const LogBook& log, std::string_view user, std::size_t index,
                           void* record) {
  if (index >= log.Size(user)) return 0;
  std::memcpy(record, &log.At(user, index), sizeof(LogRecord));
  return 1;
}

std::int32_t CopyRecord(const Record* found, void* record) {
  if (found == nullptr) return 0;
  found->CopyTo(record);
  return 1;
}

}  // namespace
}  // namespace quillbox

namespace quillkit {

using namespace quillbox;

extern "C" {

void SimulatorReset() {
  TheAppliance().Reset();
}

void SimulatorSeed() {
  TheAppliance().Reset();
  Seed(TheAppliance().contents.store);
}

const char* SimulatorLoadScenario(const char* path) {
  static std::string fault;
  Scenario scenario;
  fault = ReadScenario(std::string(TextOf(path)), scenario);
  if (fault.empty()) {
    TheAppliance().Reset();
    fault = ApplyScenario(scenario, TheAppliance());
  }
  return fault.empty() ? nullptr : fault.c_str();
}

void SimulatorSetIdentity(const char* bytes, std::uint32_t size) {
  TheAppliance().settings.identity = bytes != nullptr ? std::string(bytes, size) : std::string();
}

void SimulatorSetTimeout(std::uint32_t milliseconds) {
  TheAppliance().settings.timeout = milliseconds;
  TheAppliance().timeout = milliseconds;
}

void SimulatorSetWakeupPeriod(std::uint32_t milliseconds) {
  TheAppliance().settings.wakeupPeriod = milliseconds;
}

std::uint32_t SimulatorTimeout() {
  return TheAppliance().timeout;
}

void SimulatorAdvanceClock(std::uint32_t milliseconds) {
  TheAppliance().clock.Advance(milliseconds);
}

void SimulatorSetLatency(std::uint32_t milliseconds) {
  TheAppliance().settings.latency = milliseconds;
}

std::int32_t SimulatorSetLimit(const char* limit, std::uint32_t most) {
  return TheAppliance().settings.limits.Set(TextOf(limit), most) ? 1 : 0;
}

void SimulatorSetServerText(const char* text) {
  TheAppliance().settings.serverText = TextOf(text);
  TheAppliance().settings.hasServerText = text != nullptr;
}

const char* SimulatorSessionUser() {
  return TheAppliance().HasSession() ? TheAppliance().session.User().c_str() : "";
}

std::int32_t SimulatorBookSize(BookKind kind, const char* book, const char* user) {
  Appliance& appliance = PresentAppliance();
  if (kind == BookKind::kLog) return static_cast<std::int32_t>(appliance.log.Size({}));
  const Book* const found = appliance.contents.store.Find(PathOf(kind, book, user));
  return found != nullptr ? static_cast<std::int32_t>(found->Size()) : -1;
}

std::int32_t SimulatorEntryAt(BookKind kind, const char* book, const char* user, std::int32_t index,
                              void* record) {
  Appliance& appliance = PresentAppliance();
  if (index < 0 || record == nullptr) return 0;
  const auto place = static_cast<std::size_t>(index);
  if (kind == BookKind::kLog) return CopyLogRecord(appliance.log, {}, place, record);
  const Book* const found = appliance.contents.store.Find(PathOf(kind, book, user));
  if (found == nullptr || place >= found->Size()) return 0;
  return CopyRecord(&found->At(place)->second, record);
}

std::int32_t SimulatorFindEntry(BookKind kind, const char* book, const char* user, const char* name,
                                void* record) {
  Appliance& appliance = PresentAppliance();
  if (name == nullptr || record == nullptr) return 0;
  if (kind == BookKind::kLog) return CopyLogRecord(appliance.log, name, 0, record);
  const Book* const found = appliance.contents.store.Find(PathOf(kind, book, user));
  return found != nullptr ? CopyRecord(found->Find(EntryKey::Of(name)), record) : 0;
}

std::int32_t SimulatorPutEntry(BookKind kind, const char* book, const char* user,
                               const void* record) {
  Appliance& appliance = TheAppliance();
  if (record == nullptr) return 0;
  if (kind == BookKind::kLog) {
    LogRecord line;
    std::memcpy(&line, record, sizeof line);
    appliance.log.Append(line);
    return 1;
  }
  if (appliance.BeginChange()) return 0;
  const Status status = appliance.contents.store.Put(PathOf(kind, book, user), record);
  return appliance.EndChange(status) == kNoError ? 1 : 0;
}

void SimulatorRecordCalls(std::int32_t record) {
  TheAppliance().journal.Record(record != 0);
}

void SimulatorClearJournal() {
  TheAppliance().journal.Clear();
}

std::int32_t SimulatorCallCount() {
  return static_cast<std::int32_t>(TheAppliance().journal.Size());
}

const char* SimulatorCallText(std::int32_t index) {
  const Journal::Call* const call = TheAppliance().journal.At(index);
  return call != nullptr ? call->text.c_str() : nullptr;
}

Status SimulatorCallStatus(std::int32_t index) {
  const Journal::Call* const call = TheAppliance().journal.At(index);
  return call != nullptr ? call->status : kNoError;
}

void SimulatorFail(const char* entry, std::int32_t occurrence, Status status) {
  TheAppliance().faults.Add(TextOf(entry), occurrence, status);
}

const char* SimulatorUnfiredFault(std::int32_t index) {
  static std::string text;
  if (TheAppliance().mayHaveUnfiredFaults) return nullptr;
  const std::vector<std::string> unfired = TheAppliance().faults.Unfired();
  if (index < 0 || static_cast<std::size_t>(index) >= unfired.size()) return nullptr;
  text = unfired[static_cast<std::size_t>(index)];
  return text.c_str();
}

void SimulatorClearFaults() {
  TheAppliance().faults.Clear();
}

void SimulatorSetDefects(std::uint32_t defects) {
  TheAppliance().defects.Set(defects);
}

void SimulatorInflateSizes(std::uint32_t by) {
  TheAppliance().defects.InflateSizes(by);
}

}  // extern "C"

}  // namespace quillkit
