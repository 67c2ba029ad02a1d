#include "tests/support/wrapped_heap.h"

#include <cstdint>
#include <new>

namespace {

void* AllocateOrThrow(std::size_t size) {
  void* block = quillkit::AllocateOnHeap(size);
  if (block == nullptr) throw std::bad_alloc();
  return block;
}

void Free(void* block) {
  if (block != nullptr) quillkit::FreeOnHeap(block);
}

}  // namespace

// NOLINTBEGIN(bugprone-reserved-identifier): the names by which the linker wraps a function.
extern "C" {

void* __wrap_malloc(std::size_t size) {
  return quillkit::AllocateOnHeap(size);
}

// At most half of the address space, so that a program can add a header to a block of any size.
void* __wrap_calloc(std::size_t count, std::size_t size) {
  if (size != 0 && count > SIZE_MAX / 2 / size) return nullptr;
  return quillkit::AllocateZeroedOnHeap(count * size);
}

void* __wrap_realloc(void* block, std::size_t size) {
  return block != nullptr ? quillkit::ResizeOnHeap(block, size) : quillkit::AllocateOnHeap(size);
}

void __wrap_free(void* block) {
  Free(block);
}
}
// NOLINTEND(bugprone-reserved-identifier)

// All forms are replaced, so that no form of another library is paired with one of these.
void* operator new(std::size_t size) {
  return AllocateOrThrow(size);
}
void* operator new[](std::size_t size) {
  return AllocateOrThrow(size);
}
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  return quillkit::AllocateOnHeap(size);
}
void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  return quillkit::AllocateOnHeap(size);
}
void operator delete(void* block) noexcept {
  Free(block);
}
void operator delete[](void* block) noexcept {
  Free(block);
}
void operator delete(void* block, std::size_t /*size*/) noexcept {
  Free(block);
}
void operator delete[](void* block, std::size_t /*size*/) noexcept {
  Free(block);
}
void operator delete(void* block, const std::nothrow_t& /*tag*/) noexcept {
  Free(block);
}
void operator delete[](void* block, const std::nothrow_t& /*tag*/) noexcept {
  Free(block);
}
