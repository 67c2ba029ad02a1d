// Which loaded module the running code belongs to.

#ifndef QUILLKIT_TESTS_PLATFORM_POSIX_INSIDE_MODULE_H_
#define QUILLKIT_TESTS_PLATFORM_POSIX_INSIDE_MODULE_H_

namespace quillkit {

// Whether the calling thread is inside the module that `address` is in: a function of that module
// has called it, through whatever others.
bool IsInsideModuleOf(const void* address);

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_PLATFORM_POSIX_INSIDE_MODULE_H_
