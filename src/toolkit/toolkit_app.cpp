#include "toolkit/toolkit_app.h"

#include "bridge/the_agent.h"
#include "platform/message_box.h"
#include "platform/name_service.h"

namespace quillkit {
namespace {

bool ReportFailure(unsigned resource) {
  ShowResourceMessage(resource);
  return false;
}

}  // namespace

bool CToolkitApp::Start() {
  if (!StartSockets()) return ReportFailure(kSocketsFailedText);
  if (TheAgent.LoadServerLibrary() != kNoError) return ReportFailure(kServerLibraryMissingText);
  return true;
}

void CToolkitApp::Stop() {
  TheAgent.Shutdown();
  StopSockets();
}

}  // namespace quillkit
