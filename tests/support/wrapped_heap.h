// The heap of a program whose memory goes through functions of its own: quillkit_wrap_heap
// (cmake/QuillkitTargets.cmake) leads operator new there, and the C allocator as its own objects
// call it.

#ifndef QUILLKIT_TESTS_SUPPORT_WRAPPED_HEAP_H_
#define QUILLKIT_TESTS_SUPPORT_WRAPPED_HEAP_H_

#include <cstddef>

// NOLINTBEGIN(bugprone-reserved-identifier): the names by which the linker wraps a function.
extern "C" {
void* __real_malloc(std::size_t size);
void* __real_realloc(void* block, std::size_t size);
void __real_free(void* block);
}
// NOLINTEND(bugprone-reserved-identifier)

namespace quillkit {

// The program defines these. A null block is never resized or freed; null is a refusal.
void* AllocateOnHeap(std::size_t size);
void* ResizeOnHeap(void* block, std::size_t size);
void FreeOnHeap(void* block);

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_SUPPORT_WRAPPED_HEAP_H_
