// The stage of every test that needs a server: the simulated appliance as delivered, its journal
// running, and the library's agent bound to it.

#ifndef QUILLKIT_TESTS_SUPPORT_APPLIANCE_FIXTURE_H_
#define QUILLKIT_TESTS_SUPPORT_APPLIANCE_FIXTURE_H_

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "bridge/records.h"

namespace quillkit {

class CScanner;

inline const std::string kHost = "127.0.0.1";
inline const std::string kAdministrator{kAdministratorName};
inline const std::string kPassword = "quill";

class ApplianceTest : public testing::Test {
 protected:
  ApplianceTest();
  ~ApplianceTest() override;

  // Logs the administrator in, without loading the top-level book, and forgets the calls of that.
  static CScanner* LogIn();

  // Gives the appliance a soft key with items of these names, behind the library's back.
  static void PutKey(std::string_view key, std::initializer_list<std::string_view> items);

  // The calls since the last time this was asked, as SimulatorCallText gives them.
  static std::vector<std::string> TakeCalls();
};

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_SUPPORT_APPLIANCE_FIXTURE_H_
