// The fixture of the tests that use the library with a server: the simulated appliance in its
// initial state, with its journal recording and the agent of the library bound to it.

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
 public:
  static constexpr Status kFault = 11;    // a call that the simulator makes fail
  static constexpr Status kEarlier = 99;  // the last error before a test

  // Stores a soft key with items of these names on the appliance, without using the library.
  static void PutKey(std::string_view key, std::initializer_list<std::string_view> items);

 protected:
  ApplianceTest();
  ~ApplianceTest() override;

  // Logs the administrator in, without loading the top-level book, and clears the journal.
  static CScanner* LogIn();

  // Returns the calls in the journal, as SimulatorCallText returns them, and clears the journal.
  static std::vector<std::string> TakeCalls();
};

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_SUPPORT_APPLIANCE_FIXTURE_H_
