// The start and the end of the shared library, at loading and unloading.

#ifndef QUILLKIT_TOOLKIT_TOOLKIT_APP_H_
#define QUILLKIT_TOOLKIT_TOOLKIT_APP_H_

namespace quillkit {

class CToolkitApp {
 public:
  // Starts the socket layer and loads the server library. On failure, shows a message box and
  // returns false; call Stop() then.
  static bool Start();

  // Does the work of Exit and releases the socket layer. Does not log out. If the process ends
  // while the library is loaded, the server library may be unloaded already and is then not called.
  static void Stop();
};

}  // namespace quillkit

#endif  // QUILLKIT_TOOLKIT_TOOLKIT_APP_H_
