// The start and the stop of the shared library. A failed start leaves it loaded, without a server
// library: every call to the server then has status 20.

#include "bridge/the_agent.h"  // first, so that the agent outlives the object below
#include "toolkit/toolkit_app.h"

namespace quillkit {
namespace {

class LoadedLibrary {
 public:
  LoadedLibrary() {
    if (!CToolkitApp::Start()) CToolkitApp::Stop();
  }
  LoadedLibrary(const LoadedLibrary&) = delete;
  LoadedLibrary& operator=(const LoadedLibrary&) = delete;
  ~LoadedLibrary() { CToolkitApp::Stop(); }
};

const LoadedLibrary loadedLibrary;

}  // namespace
}  // namespace quillkit
