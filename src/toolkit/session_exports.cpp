// Session and errors.

#include <algorithm>
#include <string_view>

#include "books/user_record.h"
#include "bridge/status.h"
#include "bridge/the_agent.h"
#include "toolkit/call_frame.h"
#include "toolkit/quillkit.h"
#include "toolkit/session_entry.h"

namespace quillkit {

CScanner* LogToQuillbox(const std::string& host, const std::string& user,
                        const std::string& password, const std::string& third,
                        std::int32_t loadTopBook) {
  return InFrame(
      [&](const std::string& hostCopy, const std::string& userCopy, const std::string& passwordCopy,
          const std::string& thirdCopy) -> CScanner* {
        CUserRecord record;
        if (BuildUserRecord(&record, userCopy, passwordCopy, thirdCopy) == 0) return nullptr;
        return ConnectToAppliance(hostCopy, &record, loadTopBook);
      },
      host, user, password, third);
}

void Logout() {
  InFrame([] {
    TheAgent.Logout(0);
    SessionOpen = 0;
  });
}

void Exit() {
  InFrame([] { TheAgent.Shutdown(); });
}

std::int32_t GetLastToolkitError() {
  return InFrame([] { return TheAgent.LastError(); });
}

std::int32_t TranslateToolkitError(std::int32_t code, char* buffer, std::int32_t* size) {
  return InFrame([&] {
    const std::string_view text = StatusText(code);
    const auto length = static_cast<std::int32_t>(text.size());
    if (length >= *size) {
      *size = length;
      return 0;
    }
    *std::copy(text.begin(), text.end(), buffer) = '\0';
    return 1;
  });
}

}  // namespace quillkit
