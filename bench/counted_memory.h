// Counts what the program allocates on the heap: through operator new, and through the C allocator
// if the program's own objects call it. The linker redirects these calls (bench/CMakeLists.txt).

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
