#include "quillctl/system/ending.h"

#include <windows.h>

#include <atomic>

namespace quillkit {
namespace {

// Of the one DeferredEnding. The console's demands come in a thread of their own.
std::atomic<bool> isDemanded = false;

BOOL WINAPI NoteDemand(DWORD) {
  return isDemanded.exchange(true) ? FALSE : TRUE;
}

}  // namespace

DeferredEnding::DeferredEnding() {
  isDemanded = false;
  SetConsoleCtrlHandler(NoteDemand, TRUE);
}

DeferredEnding::~DeferredEnding() {
  SetConsoleCtrlHandler(NoteDemand, FALSE);
}

bool DeferredEnding::IsDemanded() const {
  return isDemanded;
}

}  // namespace quillkit
