// Finds out which loaded module is running.

#ifndef QUILLKIT_TESTS_PLATFORM_POSIX_INSIDE_MODULE_H_
#define QUILLKIT_TESTS_PLATFORM_POSIX_INSIDE_MODULE_H_

namespace quillkit {

// Returns whether a function of the module that contains `address` has called this one, directly or
// through other functions.
bool IsInsideModuleOf(const void* address);

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_PLATFORM_POSIX_INSIDE_MODULE_H_
