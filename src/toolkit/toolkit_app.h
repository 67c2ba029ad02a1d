// What happens when the shared library is loaded and unloaded.

#ifndef QUILLKIT_TOOLKIT_TOOLKIT_APP_H_
#define QUILLKIT_TOOLKIT_TOOLKIT_APP_H_

namespace quillkit {

class CToolkitApp {
 public:
  // Starts the socket layer and loads the server library. A failure is shown in a message box and
  // gives false; Stop() then clears up what was started.
  static bool Start();

  // Does the work of Exit and releases the socket layer. No logout is sent. Where a process ends
  // with the library still loaded, the server library may be gone already and hears nothing.
  static void Stop();
};

}  // namespace quillkit

#endif  // QUILLKIT_TOOLKIT_TOOLKIT_APP_H_
