// The heap of the program that links this, which can be told to refuse an allocation: operator new
// throws then, and the C allocator, as the program's own objects call it (the linker leads those
// calls here), gives null. What the server library allocates is never refused, and counts as not
// asked for.

#ifndef QUILLKIT_TESTS_MEMORY_REFUSED_MEMORY_H_
#define QUILLKIT_TESTS_MEMORY_REFUSED_MEMORY_H_

namespace quillkit {

// Refuses the allocation of this number from now on, the first being 1; 0: none, any more.
void RefuseAllocation(int number);

// Whether it came to that.
bool WasAllocationRefused();

// The blocks that are allocated and not freed: the change between two calls counts.
long LiveBlocks();

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_MEMORY_REFUSED_MEMORY_H_
