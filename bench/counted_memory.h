// Counts what the program that links this takes from the heap, through operator new and through the
// C allocator as its own objects call it (the linker leads those calls here; bench/CMakeLists.txt).

#ifndef QUILLKIT_BENCH_COUNTED_MEMORY_H_
#define QUILLKIT_BENCH_COUNTED_MEMORY_H_

#include <cstddef>

namespace quillkit {

struct HeapCount {
  std::size_t allocations = 0;  // ever made
  std::size_t allocated = 0;    // bytes, of all of them
  std::size_t bytes = 0;        // held now
};

HeapCount CountHeap();

}  // namespace quillkit

#endif  // QUILLKIT_BENCH_COUNTED_MEMORY_H_
