// The stage of the tests of the simulated appliance itself: as delivered, initialised, nobody
// logged in, and no library in between.

#ifndef QUILLKIT_TESTS_SIMULATOR_SERVER_FIXTURE_H_
#define QUILLKIT_TESTS_SIMULATOR_SERVER_FIXTURE_H_

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "bridge/imsp_api.h"
#include "simulator/simulator.h"

namespace quillkit {

// Fills a field to its end, so that no NUL stops its text.
template <std::size_t N>
void FillUp(FixedText<N>& text, char c) {
  std::memset(static_cast<void*>(&text), c, N);
}

class ServerTest : public testing::Test {
 protected:
  ServerTest() {
    SimulatorReset();
    IMSPInit();
  }
  ~ServerTest() override { IMSPTerminate(); }

  static LoginRecord MakeLogin(std::string_view user, std::string_view password) {
    LoginRecord login;
    login.address = 0x0100007F;
    login.user.Assign(user);
    login.password.Assign(password);
    return login;
  }

  static Status LogIn(std::string_view user, std::string_view password) {
    LoginRecord login = MakeLogin(user, password);
    return IMSPLogin(&login, nullptr, 0);
  }

  static void LogInAsAdministrator() { ASSERT_EQ(LogIn("ADMINISTRATOR", "quill"), kNoError); }

  static CEmailEntry MakeEmail(std::string_view name, std::string_view address = "a@b.example") {
    CEmailEntry entry;
    entry.SetName(name);
    entry.SetAddress(address);
    return entry;
  }

  static void PutEmail(std::string_view name) {
    const CEmailEntry entry = MakeEmail(name);
    SimulatorPutEntry(BookKind::kEmail, nullptr, nullptr, &entry);
  }
};

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_SIMULATOR_SERVER_FIXTURE_H_
