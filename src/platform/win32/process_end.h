// The end of the process, as reported by the entry point of the DLL.

#ifndef QUILLKIT_PLATFORM_WIN32_PROCESS_END_H_
#define QUILLKIT_PLATFORM_WIN32_PROCESS_END_H_

namespace quillkit {

// From this call on, modules from LoadModule have no entry points and are not unloaded. When a
// process ends, the system may detach a module earlier than the library that loaded it. The code of
// a detached module must not be called.
void DisableModules();

}  // namespace quillkit

#endif  // QUILLKIT_PLATFORM_WIN32_PROCESS_END_H_
