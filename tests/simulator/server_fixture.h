// The fixture of the tests of the simulated appliance: in its initial state, initialised, no user
// logged in. The tests call its entry points directly.

#ifndef QUILLKIT_TESTS_SIMULATOR_SERVER_FIXTURE_H_
#define QUILLKIT_TESTS_SIMULATOR_SERVER_FIXTURE_H_

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "bridge/imsp_api.h"
#include "bridge/status.h"
#include "simulator/simulator.h"
#include "tests/support/email_entry.h"

namespace quillkit {

// Fills a field to its end, so that no NUL ends its text.
template <std::size_t N>
void FillUp(FixedText<N>& text, char c) {
  std::memset(static_cast<void*>(&text), c, N);
}

// Makes a call of the server, and returns its status. The text has the form of the journal, without
// "IMSP": "CreateEntry 64:Team Ann". A missing argument and "-" are null, and '' is the empty text.
// IMSPLogin takes a user and a password; IMSPIOCtl a code and a text; a record only has a name.
Status Call(const std::string& call);

class ServerTest : public testing::Test {
 protected:
  ServerTest() {
    SimulatorReset();
    IMSPInit();
  }
  ~ServerTest() override { IMSPTerminate(); }

  // Makes the calls in this order, and expects the status of each of them.
  static void Expect(Status status, std::initializer_list<std::string> calls) {
    for (const std::string& call : calls) EXPECT_EQ(Call(call), status) << call;
  }

  static void LogInAsAdministrator() { Expect(kNoError, {"Login ADMINISTRATOR quill"}); }

  static void PutEmail(std::string_view name) {
    const CEmailEntry entry = MakeEntry(name);
    SimulatorPutEntry(BookKind::kEmail, nullptr, nullptr, &entry);
  }

  // The number of entries, or -1 for a book that does not exist.
  static std::int32_t Size(BookKind kind, const char* book = "",
                           const char* user = "ADMINISTRATOR") {
    return SimulatorBookSize(kind, book, user);
  }

  ABIdent email{BookKind::kEmail, kEmailBook};
};

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_SIMULATOR_SERVER_FIXTURE_H_
