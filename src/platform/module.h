// Loading a shared library at run time.

#ifndef QUILLKIT_PLATFORM_MODULE_H_
#define QUILLKIT_PLATFORM_MODULE_H_

namespace quillkit {

using ModuleHandle = void*;
using EntryPoint = void (*)();

// Loads the library whose plain name is given: "X" is X.DLL on Windows and libX.so elsewhere. It is
// searched as the system does, and on POSIX also beside this library. Null on failure.
ModuleHandle LoadModule(const char* name);

// The entry point of exactly this name, or null when there is none or `module` is null. On Windows
// also null while the process ends.
EntryPoint FindEntryPoint(ModuleHandle module, const char* name);

// Undoes one LoadModule. A null module is ignored.
void UnloadModule(ModuleHandle module);

}  // namespace quillkit

#endif  // QUILLKIT_PLATFORM_MODULE_H_
