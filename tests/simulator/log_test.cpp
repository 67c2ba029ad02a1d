// The log book, which has records in the order of time and no names.

#include <algorithm>
#include <cstdio>

#include "bridge/status.h"
#include "tests/simulator/server_fixture.h"

namespace quillkit {
namespace {

using testing::ElementsAre;

// "user: text" of one record.
std::string Show(const LogRecord& record) {
  return std::string(record.bytes) + ": " + (record.bytes + 32);
}

class LogTest : public ServerTest {
 protected:
  static inline ABIdent book{BookKind::kLog, kLogBook};

  // The records of a user, as IMSPReadAB gives them.
  static std::vector<std::string> Read(std::string_view user, std::uint32_t capacity = 10,
                                       std::int32_t direction = 1, std::int32_t skip = 0) {
    KeyRange range("", user, skip);
    std::vector<LogRecord> records(capacity);
    IMSPReadAB(&book, &range, records.data(), &capacity, direction);
    if (direction != 1) std::rotate(records.begin(), records.end() - capacity, records.end());
    std::vector<std::string> lines;
    for (std::uint32_t i = 0; i < capacity; ++i) lines.push_back(Show(records[i]));
    return lines;
  }

  static std::int32_t Size(const char* user) {
    std::uint32_t count = 99;
    EXPECT_EQ(IMSPSizeofAB(&book, user, &count), kNoError);
    return static_cast<std::int32_t>(count);
  }

  // Two logins of TOOLKIT, with one of GUEST in between, and the administrator's.
  void LogInSeveral() {
    LogIn("TOOLKIT", "KELP");
    LogIn("GUEST", "");
    LogIn("TOOLKIT", "KELP");
    IMSPLogout();
    LogInAsAdministrator();
  }
};

TEST_F(LogTest, FilterIsAUser) {
  LogIn("TOOLKIT", "wrong");
  LogInSeveral();
  IMSPBatchConfiguration("no/such/file");
  EXPECT_THAT(Read(""),
              ElementsAre("TOOLKIT: login", "GUEST: login", "TOOLKIT: login", "TOOLKIT: logout",
                          "ADMINISTRATOR: login", "ADMINISTRATOR: batch 17"));
  EXPECT_EQ(Size(nullptr), 6);
  EXPECT_EQ(Size("*"), 6);
  EXPECT_EQ(Size("TOOLKIT"), 3);
  EXPECT_EQ(Size("TOOL*"), 0);
  EXPECT_THAT(Read("TOOLKIT", 2, 1, 1), ElementsAre("TOOLKIT: login", "TOOLKIT: logout"));
  EXPECT_THAT(Read("TOOLKIT", 2, 0), ElementsAre("TOOLKIT: login", "TOOLKIT: logout"));
  EXPECT_THAT(Read("Nobody"), testing::IsEmpty());
}

TEST_F(LogTest, ClearsAUserAllOrAllButSome) {
  LogInSeveral();
  EXPECT_EQ(IMSPClearAB(&book, "TOOLKIT"), kNoError);
  EXPECT_THAT(Read(""), ElementsAre("GUEST: login", "ADMINISTRATOR: login"));
  LogIn("TOOLKIT", "KELP");
  EXPECT_EQ(IMSPClearAB(&book, "_!ADMINISTRATOR_!GUEST"), kNoError);
  EXPECT_THAT(Read(""), ElementsAre("GUEST: login", "ADMINISTRATOR: login"));
  EXPECT_EQ(IMSPClearAB(&book, nullptr), kNoError);
  EXPECT_EQ(Size(nullptr), 0);
}

TEST_F(LogTest, ItsRecordsAreNoEntries) {
  LogInAsAdministrator();
  EntryKey key("TOOLKIT");
  LogRecord record;
  std::uint32_t count = 1;
  EXPECT_EQ(IMSPCreateEntry(&book, &record), kNotImplemented);
  EXPECT_EQ(IMSPDeleteEntry(&book, &key), kNotImplemented);
  EXPECT_EQ(IMSPListABEntries(&book, nullptr, &key, &count, 1), kNotImplemented);
}

// The oldest records make room, and a user's own are still found by their place.
TEST_F(LogTest, KeepsTheLatestRecords) {
  constexpr int kCapacity = 65536;
  LogInSeveral();
  LogRecord record;
  for (int i = 0; i < kCapacity; ++i) {
    std::snprintf(record.bytes, 32, i % 2 == 0 ? "even" : "odd");
    std::snprintf(record.bytes + 32, 100, "%d", i);
    SimulatorPutEntry(BookKind::kLog, nullptr, nullptr, &record);
  }
  LogIn("TOOLKIT", "KELP");
  EXPECT_EQ(Size(nullptr), kCapacity);
  EXPECT_THAT(Read("even", 1), ElementsAre("even: 2"));
  EXPECT_THAT(Read("odd", 1, 0), ElementsAre("odd: 65535"));
  EXPECT_THAT(Read("TOOLKIT"), ElementsAre("TOOLKIT: login"));
}

}  // namespace
}  // namespace quillkit
