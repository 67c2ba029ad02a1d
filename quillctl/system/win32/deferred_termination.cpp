#include "quillctl/system/deferred_termination.h"

#include <windows.h>

#include <atomic>

namespace quillctl {
namespace {

// Belongs to the one DeferredTermination. The console calls the handler in a thread of its own.
std::atomic<bool> isRequested = false;

BOOL WINAPI RecordRequest(DWORD) {
  return isRequested.exchange(true) ? FALSE : TRUE;
}

}  // namespace

DeferredTermination::DeferredTermination() {
  isRequested = false;
  SetConsoleCtrlHandler(RecordRequest, TRUE);
}

DeferredTermination::~DeferredTermination() {
  SetConsoleCtrlHandler(RecordRequest, FALSE);
}

bool DeferredTermination::IsRequested() const {
  return isRequested;
}

}  // namespace quillctl
