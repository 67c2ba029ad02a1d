// The end of the process, as reported by the entry point of the DLL.

#ifndef QUILLKIT_PLATFORM_WIN32_PROCESS_END_H_
#define QUILLKIT_PLATFORM_WIN32_PROCESS_END_H_

namespace quillkit {

// From this call on, LoadModule's modules have no entry points and are not unloaded. When a process
// ends, the system detaches the modules that this one loaded before this one: their code must not
// be called.
void LeaveModulesAlone();

}  // namespace quillkit

#endif  // QUILLKIT_PLATFORM_WIN32_PROCESS_END_H_
