#include "quillctl/system/deferred_termination.h"

#include <windows.h>

#include <atomic>
#include <iostream>

namespace quillctl {
namespace {

// Belongs to the one DeferredTermination. The console calls the handler in a thread of its own.
std::atomic<bool> isRequested = false;
const char* announced = nullptr;

BOOL WINAPI RecordRequest(DWORD) {
  if (isRequested.exchange(true)) return FALSE;
  if (announced != nullptr) {
    std::cerr << "\nquillctl: " << announced << "; a second interruption stops at once\n";
  }
  return TRUE;
}

}  // namespace

DeferredTermination::DeferredTermination(const char* reason) {
  isRequested = false;
  announced = reason;
  SetConsoleCtrlHandler(RecordRequest, TRUE);
}

DeferredTermination::~DeferredTermination() {
  SetConsoleCtrlHandler(RecordRequest, FALSE);
}

bool DeferredTermination::IsRequested() const {
  return isRequested;
}

}  // namespace quillctl
