// The appliance and its connected user.

#include "appliance/scanner.h"
#include "books/connected_user.h"
#include "books/user_record.h"
#include "bridge/the_agent.h"
#include "softkeys/top_level_ab.h"
#include "toolkit/call_frame.h"
#include "toolkit/quillkit.h"
#include "toolkit/session_entry.h"

namespace quillkit {

const char* GetScannerName(CScanner* scanner) {
  return InFrame([&] { return scanner->Name().c_str(); });
}

const char* GetScannerVersion(CScanner* scanner) {
  return InFrame([&] { return scanner->Version().c_str(); });
}

const char* GetScannerModel(CScanner* scanner) {
  return InFrame([&] { return scanner->Model().c_str(); });
}

std::uint32_t GetScannerAddress(CScanner* scanner) {
  return InFrame([&] { return scanner->Address(); });
}

CUserRecord* GetCurrentConnectedUser(CScanner* scanner) {
  return InFrame([&] { return ConnectedUser(scanner); });
}

std::int32_t IsAdminConnected(CScanner* scanner) {
  return InFrame([&] { return IsConnectedUserAdministrator(scanner); });
}

CTopLevelAB* GetTopLevelAbook(CScanner* scanner) {
  return InFrame([&]() -> CTopLevelAB* {
    // Exit destroys the scanner but leaves the session marked as open.
    if (SessionOpen == 0 || TheAgent.ServerLibrary() == nullptr) return nullptr;
    return scanner->TopBook();
  });
}

}  // namespace quillkit
