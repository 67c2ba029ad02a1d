#include "bench/counted_memory.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <new>

// NOLINTBEGIN(bugprone-reserved-identifier): the names by which the linker wraps a function.
extern "C" {
void* __real_malloc(std::size_t size);
void* __real_realloc(void* block, std::size_t size);
void __real_free(void* block);
}

namespace quillkit {
namespace {

// Ahead of each block. One that some library allocated itself has no such mark and is not counted.
struct alignas(std::max_align_t) Header {
  std::uint64_t mark;
  std::size_t size;
};

constexpr std::uint64_t kMark = 0x5155494C4C4B4954;

HeapCount heap;

Header* HeaderOf(void* block) {
  Header* header = block != nullptr ? static_cast<Header*>(block) - 1 : nullptr;
  return header != nullptr && header->mark == kMark ? header : nullptr;
}

void* Counted(void* memory, std::size_t size) {
  if (memory == nullptr) return nullptr;
  auto* header = static_cast<Header*>(memory);
  *header = {kMark, size};
  ++heap.allocations;
  heap.bytes += size;
  return header + 1;
}

void* Allocate(std::size_t size) {
  return Counted(__real_malloc(sizeof(Header) + size), size);
}

void Release(void* block) {
  Header* header = HeaderOf(block);
  if (header == nullptr) return __real_free(block);
  heap.bytes -= header->size;
  header->mark = 0;
  __real_free(header);
}

void* Resize(void* block, std::size_t size) {
  if (block == nullptr) return Allocate(size);
  Header* header = HeaderOf(block);
  if (header == nullptr) return __real_realloc(block, size);
  heap.bytes -= header->size;
  return Counted(__real_realloc(header, sizeof(Header) + size), size);
}

}  // namespace

HeapCount CountHeap() {
  return heap;
}

}  // namespace quillkit

extern "C" {

void* __wrap_malloc(std::size_t size) {
  return quillkit::Allocate(size);
}

void* __wrap_calloc(std::size_t count, std::size_t size) {
  if (size != 0 && count > SIZE_MAX / 2 / size) return nullptr;
  void* block = quillkit::Allocate(count * size);
  if (block != nullptr) std::memset(block, 0, count * size);
  return block;
}

void* __wrap_realloc(void* block, std::size_t size) {
  return quillkit::Resize(block, size);
}

void __wrap_free(void* block) {
  quillkit::Release(block);
}
}
// NOLINTEND(bugprone-reserved-identifier)

void* operator new(std::size_t size) {
  void* block = quillkit::Allocate(size);
  if (block == nullptr) throw std::bad_alloc();
  return block;
}

void operator delete(void* block) noexcept {
  quillkit::Release(block);
}

void operator delete(void* block, std::size_t /*size*/) noexcept {
  quillkit::Release(block);
}
