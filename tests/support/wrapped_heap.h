// The heap of a program that allocates memory through functions of its own. quillkit_wrap_heap
// (cmake/QuillkitTargets.cmake) redirects operator new to them. It also redirects the calls of the
// C allocator in the program's own objects.

#ifndef QUILLKIT_TESTS_SUPPORT_WRAPPED_HEAP_H_
#define QUILLKIT_TESTS_SUPPORT_WRAPPED_HEAP_H_

#include <cstddef>

// NOLINTBEGIN(bugprone-reserved-identifier): the names by which the linker wraps a function.
extern "C" {
void* __real_malloc(std::size_t size);
void* __real_calloc(std::size_t count, std::size_t size);
void* __real_realloc(void* block, std::size_t size);
void __real_free(void* block);
}
// NOLINTEND(bugprone-reserved-identifier)

namespace quillkit {

// The program defines these. They are not called for a null block. Null means a failed allocation.
void* AllocateOnHeap(std::size_t size);
void* AllocateZeroedOnHeap(std::size_t size);
void* ResizeOnHeap(void* block, std::size_t size);
void FreeOnHeap(void* block);

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_SUPPORT_WRAPPED_HEAP_H_
