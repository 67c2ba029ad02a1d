#include "bench/counted_memory.h"

#include <cstdint>

#include "tests/support/wrapped_heap.h"

namespace quillkit {
namespace {

// Precedes each counted block. A block that another library allocated has no such mark.
struct alignas(std::max_align_t) Header {
  std::uint64_t mark;
  std::size_t size;
};

constexpr std::uint64_t kMark = 0x5155494C4C4B4954;

HeapCount heap;

// Null for a block that is not counted.
Header* HeaderOf(void* block) {
  Header* header = static_cast<Header*>(block) - 1;
  return header->mark == kMark ? header : nullptr;
}

void* Counted(void* memory, std::size_t size) {
  if (memory == nullptr) return nullptr;
  auto* header = static_cast<Header*>(memory);
  *header = {kMark, size};
  ++heap.allocations;
  heap.allocated += size;
  heap.bytes += size;
  return header + 1;
}

}  // namespace

HeapCount CountHeap() {
  return heap;
}

void* AllocateOnHeap(std::size_t size) {
  return Counted(__real_malloc(sizeof(Header) + size), size);
}

void* AllocateZeroedOnHeap(std::size_t size) {
  return Counted(__real_calloc(1, sizeof(Header) + size), size);
}

void* ResizeOnHeap(void* block, std::size_t size) {
  Header* header = HeaderOf(block);
  if (header == nullptr) return __real_realloc(block, size);
  heap.bytes -= header->size;
  return Counted(__real_realloc(header, sizeof(Header) + size), size);
}

void FreeOnHeap(void* block) {
  Header* header = HeaderOf(block);
  if (header == nullptr) return __real_free(block);
  heap.bytes -= header->size;
  header->mark = 0;
  __real_free(header);
}

}  // namespace quillkit
