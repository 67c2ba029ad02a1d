// The program's heap. An allocation can be made to fail: operator new then throws, and the C
// allocator, when the program's own objects call it, returns null (the linker redirects those
// calls). Allocations of the server library and of exceptions never fail and are not counted.

#ifndef QUILLKIT_TESTS_MEMORY_FAILING_ALLOCATIONS_H_
#define QUILLKIT_TESTS_MEMORY_FAILING_ALLOCATIONS_H_

namespace quillkit {

// kForEver: also all later ones.
enum class Refusal { kOnce, kForEver };

// Makes the allocation with this number fail, counting from 1 from now on; 0: none.
void FailAllocation(int number, Refusal refusal = Refusal::kOnce);

// Returns the number of allocations between the latest FailAllocation of a number above 0 and that
// of 0.
int AllocationCount();

// Returns the number of allocated blocks. Only the change between two calls is meaningful.
long LiveBlocks();

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_MEMORY_FAILING_ALLOCATIONS_H_
