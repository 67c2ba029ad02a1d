// Whether the process is a forked child of the one that loaded the library. Such a child has one
// thread, and locks that other threads held at the fork stay locked.

#ifndef QUILLKIT_PLATFORM_FORKED_CHILD_H_
#define QUILLKIT_PLATFORM_FORKED_CHILD_H_

namespace quillkit {

// False on Windows, which has no fork. Takes no lock and makes no system call.
bool IsForkedChild();

}  // namespace quillkit

#endif  // QUILLKIT_PLATFORM_FORKED_CHILD_H_
