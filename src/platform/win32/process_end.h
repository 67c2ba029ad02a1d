// The end of the process, as the DLL's entry point tells it to what outlives it.

#ifndef QUILLKIT_PLATFORM_WIN32_PROCESS_END_H_
#define QUILLKIT_PLATFORM_WIN32_PROCESS_END_H_

namespace quillkit {

// From here on no module has an entry point and none is unloaded. When a process ends the system
// detaches the modules that this one has loaded before this one: there is no code in them to call.
void LeaveModulesAlone();

}  // namespace quillkit

#endif  // QUILLKIT_PLATFORM_WIN32_PROCESS_END_H_
