#include "tests/memory/failing_allocations.h"

#include <cstddef>

#include "simulator/simulator.h"
#include "tests/platform/posix/inside_module.h"
#include "tests/support/wrapped_heap.h"

namespace quillkit {
namespace {

int toBeRefused = 0;
bool wasRefused = false;
long liveBlocks = 0;

bool IsRefused() {
  if (toBeRefused == 0 || IsInsideModuleOf(reinterpret_cast<void*>(&SimulatorReset))) return false;
  wasRefused = --toBeRefused == 0;
  return wasRefused;
}

}  // namespace

void RefuseAllocation(int number) {
  toBeRefused = number;
  if (number != 0) wasRefused = false;
}

bool WasAllocationRefused() {
  return wasRefused;
}

long LiveBlocks() {
  return liveBlocks;
}

void* AllocateOnHeap(std::size_t size) {
  void* block = IsRefused() ? nullptr : __real_malloc(size);
  if (block != nullptr) ++liveBlocks;
  return block;
}

void* ResizeOnHeap(void* block, std::size_t size) {
  return IsRefused() ? nullptr : __real_realloc(block, size);
}

void FreeOnHeap(void* block) {
  --liveBlocks;
  __real_free(block);
}

}  // namespace quillkit
