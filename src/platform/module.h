// Loading a shared library at run time.

#ifndef QUILLKIT_PLATFORM_MODULE_H_
#define QUILLKIT_PLATFORM_MODULE_H_

namespace quillkit {

using ModuleHandle = void*;
using EntryPoint = void (*)();

// Loads a library by its plain name: "X" is X.DLL on Windows and libX.so on other systems. Uses the
// search path of the system; on POSIX also searches the folder of this library. Returns null on
// failure.
ModuleHandle LoadModule(const char* name);

// Returns the entry point of exactly this name; null if it does not exist, if `module` is null and,
// on Windows, while the process ends.
EntryPoint FindEntryPoint(ModuleHandle module, const char* name);

// Releases a module once for each LoadModule. Ignores null.
void UnloadModule(ModuleHandle module);

}  // namespace quillkit

#endif  // QUILLKIT_PLATFORM_MODULE_H_
