// What happens when the shared library is loaded and unloaded.

#ifndef QUILLKIT_TOOLKIT_LIBRARY_H_
#define QUILLKIT_TOOLKIT_LIBRARY_H_

namespace quillkit {

// Starts the socket layer and loads the server library. A failure is shown in a message box and
// gives false; StopLibrary() then clears up what was started.
bool StartLibrary();

// Does the work of Exit and releases the socket layer. No logout is sent.
void StopLibrary();

}  // namespace quillkit

#endif  // QUILLKIT_TOOLKIT_LIBRARY_H_
