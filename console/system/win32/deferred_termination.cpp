#include "console/system/deferred_termination.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <iostream>
#include <mutex>

#include "console/program.h"

namespace console {
namespace {

// The console calls the handlers in a thread of its own.
std::mutex mutex;
std::array<std::string, 4> paths;

BOOL WINAPI DeleteFiles(DWORD) {
  const std::lock_guard lock(mutex);
  for (const std::string& each : paths) {
    if (!each.empty()) DeleteFileA(each.c_str());
  }
  return FALSE;
}

// Belong to the first DeferredTermination.
bool isDeferred = false;
std::atomic<bool> isRequested = false;
std::atomic<bool> wasRequested = false;  // by any of them
const char* announced = nullptr;

BOOL WINAPI RecordRequest(DWORD) {
  if (isRequested.exchange(true)) return FALSE;
  wasRequested = true;
  if (announced != nullptr) {
    std::cerr << '\n'
              << ProgramName() << ": " << announced << "; a second interruption stops at once\n";
  }
  return TRUE;
}

}  // namespace

DeletedOnTermination::DeletedOnTermination(const std::string& path) {
  const std::lock_guard lock(mutex);
  slot = static_cast<std::size_t>(std::ranges::find(paths, std::string()) - paths.begin());
  if (slot < paths.size()) paths[slot] = path;
  SetConsoleCtrlHandler(DeleteFiles, TRUE);
}

DeletedOnTermination::~DeletedOnTermination() {
  SetConsoleCtrlHandler(DeleteFiles, FALSE);
  const std::lock_guard lock(mutex);
  if (slot < paths.size()) paths[slot].clear();
}

DeferredTermination::DeferredTermination(const char* reason) : isFirst(!isDeferred) {
  if (!isFirst) return;
  isDeferred = true;
  isRequested = false;
  announced = reason;
  SetConsoleCtrlHandler(RecordRequest, TRUE);
}

DeferredTermination::~DeferredTermination() {
  if (!isFirst) return;
  isDeferred = false;
  SetConsoleCtrlHandler(RecordRequest, FALSE);
}

bool DeferredTermination::IsRequested() const {
  return isRequested;
}

void TerminateIfRequested() {
  constexpr UINT kControlCExit = 0xC000013A;
  if (wasRequested) ExitProcess(kControlCExit);
}

}  // namespace console
