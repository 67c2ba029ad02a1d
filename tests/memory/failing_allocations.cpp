#include "tests/memory/failing_allocations.h"

#include <cstddef>

#include "simulator/simulator.h"
#include "tests/platform/inside_module.h"
#include "tests/support/wrapped_heap.h"

// NOLINTBEGIN(bugprone-reserved-identifier): the names by which the linker wraps a function.
extern "C" {
void* __real___cxa_allocate_exception(std::size_t size) noexcept;
void* __wrap___cxa_allocate_exception(std::size_t size) noexcept;
}
// NOLINTEND(bugprone-reserved-identifier)

namespace quillkit {
namespace {

bool throws = false;
int failing = 0;  // the number of the allocation that fails; 0: they are not counted
int counted = 0;
Refusal refused = Refusal::kOnce;
long liveBlocks = 0;

bool MustFail() {
  if (failing == 0 || throws || IsInsideModuleOf(reinterpret_cast<void*>(&SimulatorReset)))
    return false;
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

// The memory of an exception is not counted. Where the runtime is a part of the program, it would
// be refused, and the lock of the runtime's reserve would allocate memory, fail and throw, without
// end. NOLINTNEXTLINE(bugprone-reserved-identifier)
void* __wrap___cxa_allocate_exception(std::size_t size) noexcept {
  quillkit::throws = true;
  void* const memory = __real___cxa_allocate_exception(size);
  quillkit::throws = false;
  return memory;
}
