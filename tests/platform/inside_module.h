// Finds out which loaded module is running.

#ifndef QUILLKIT_TESTS_PLATFORM_INSIDE_MODULE_H_
#define QUILLKIT_TESTS_PLATFORM_INSIDE_MODULE_H_

namespace quillkit {

// Returns whether a function of the module that contains `address` has called the operator new of
// this program, which calls this function. Always false on Windows: each module has its own.
bool IsInsideModuleOf(const void* address);

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_PLATFORM_INSIDE_MODULE_H_
