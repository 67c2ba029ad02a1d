#include "tests/memory/failing_allocations.h"

#include <cstddef>

#include "simulator/simulator.h"
#include "tests/platform/posix/inside_module.h"
#include "tests/support/wrapped_heap.h"

namespace quillkit {
namespace {

int untilFailure = 0;  // allocations, with the one that fails; 0: none fails
bool hasFailed = false;
long liveBlocks = 0;

bool MustFail() {
  if (untilFailure == 0 || IsInsideModuleOf(reinterpret_cast<void*>(&SimulatorReset))) return false;
  hasFailed = --untilFailure == 0;
  return hasFailed;
}

}  // namespace

void FailAllocation(int number) {
  untilFailure = number;
  if (number != 0) hasFailed = false;
}

bool HasAllocationFailed() {
  return hasFailed;
}

long LiveBlocks() {
  return liveBlocks;
}

void* AllocateOnHeap(std::size_t size) {
  void* block = MustFail() ? nullptr : __real_malloc(size);
  if (block != nullptr) ++liveBlocks;
  return block;
}

void* AllocateZeroedOnHeap(std::size_t size) {
  void* block = MustFail() ? nullptr : __real_calloc(1, size);
  if (block != nullptr) ++liveBlocks;
  return block;
}

void* ResizeOnHeap(void* block, std::size_t size) {
  return MustFail() ? nullptr : __real_realloc(block, size);
}

void FreeOnHeap(void* block) {
  --liveBlocks;
  __real_free(block);
}

}  // namespace quillkit
