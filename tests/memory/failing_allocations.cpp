#include "tests/memory/failing_allocations.h"

#include <cstddef>

#include "simulator/simulator.h"
#include "tests/platform/posix/inside_module.h"
#include "tests/support/wrapped_heap.h"

namespace quillkit {
namespace {

int failing = 0;  // the number of the allocation that fails; 0: they are not counted
int counted = 0;
Refusal refused = Refusal::kOnce;
long liveBlocks = 0;

bool MustFail() {
  if (failing == 0 || IsInsideModuleOf(reinterpret_cast<void*>(&SimulatorReset))) return false;
  ++counted;
  return counted == failing || (counted > failing && refused == Refusal::kForEver);
}

void* Counted(void* block) {
  if (block != nullptr) ++liveBlocks;
  return block;
}

}  // namespace

void FailAllocation(int number, Refusal refusal) {
  failing = number;
  refused = refusal;
  if (number != 0) counted = 0;
}

int AllocationCount() {
  return counted;
}

long LiveBlocks() {
  return liveBlocks;
}

void* AllocateOnHeap(std::size_t size) {
  return Counted(MustFail() ? nullptr : __real_malloc(size));
}

void* AllocateZeroedOnHeap(std::size_t size) {
  return Counted(MustFail() ? nullptr : __real_calloc(1, size));
}

void* ResizeOnHeap(void* block, std::size_t size) {
  return MustFail() ? nullptr : __real_realloc(block, size);
}

void FreeOnHeap(void* block) {
  --liveBlocks;
  __real_free(block);
}

}  // namespace quillkit
