#include "tests/memory/refused_memory.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <new>

#include "simulator/simulator.h"
#include "tests/platform/posix/inside_module.h"

// NOLINTBEGIN(bugprone-reserved-identifier): the names by which the linker wraps a function.
extern "C" {
void* __real_malloc(std::size_t size);
void* __real_realloc(void* block, std::size_t size);
void __real_free(void* block);
}

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

void* Allocate(std::size_t size) {
  void* block = IsRefused() ? nullptr : __real_malloc(size);
  if (block != nullptr) ++liveBlocks;
  return block;
}

void* AllocateOrThrow(std::size_t size) {
  void* block = Allocate(size);
  if (block == nullptr) throw std::bad_alloc();
  return block;
}

void Free(void* block) {
  if (block != nullptr) --liveBlocks;
  __real_free(block);
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

}  // namespace quillkit

using quillkit::Allocate;
using quillkit::AllocateOrThrow;
using quillkit::Free;

extern "C" {

void* __wrap_malloc(std::size_t size) {
  return Allocate(size);
}

void* __wrap_calloc(std::size_t count, std::size_t size) {
  if (size != 0 && count > SIZE_MAX / size) return nullptr;
  void* block = Allocate(count * size);
  if (block != nullptr) std::memset(block, 0, count * size);
  return block;
}

void* __wrap_realloc(void* block, std::size_t size) {
  if (block == nullptr) return Allocate(size);
  return quillkit::IsRefused() ? nullptr : __real_realloc(block, size);
}

void __wrap_free(void* block) {
  Free(block);
}
}
// NOLINTEND(bugprone-reserved-identifier)

// All forms, so that none of another library's is paired with one of these.
void* operator new(std::size_t size) {
  return AllocateOrThrow(size);
}
void* operator new[](std::size_t size) {
  return AllocateOrThrow(size);
}
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  return Allocate(size);
}
void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  return Allocate(size);
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
