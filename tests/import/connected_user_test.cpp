#include "import/connected_user.h"

#include "appliance/scanner.h"
#include "books/user_record.h"
#include "tests/support/appliance_fixture.h"
#include "toolkit/quillkit.h"

namespace quillkit {
namespace {

using ConnectedUserTest = ApplianceTest;

TEST_F(ConnectedUserTest, IsFoundThroughAnyScanner) {
  const CScanner unbound;
  char name[32] = "stale";
  EXPECT_EQ(ConnectedUser(nullptr), nullptr);
  EXPECT_EQ(GetConnectedUserName(&unbound, name, sizeof name), 0);
  EXPECT_STREQ(name, "stale");

  const CScanner* const box = LogIn();
  for (const CScanner* each : {box, &unbound, static_cast<const CScanner*>(nullptr)}) {
    ASSERT_NE(ConnectedUser(each), nullptr);
    EXPECT_EQ(GetConnectedUserName(each, name, sizeof name), 1);
    EXPECT_STREQ(name, "ADMINISTRATOR");
  }
  Logout();
  EXPECT_EQ(ConnectedUser(box), nullptr);
  EXPECT_THAT(TakeCalls(), testing::ElementsAre("IMSPLogout"));
}

// The name is cut to what fits in front of a NUL, and NULs fill the rest.
TEST_F(ConnectedUserTest, NameFillsTheBuffer) {
  const CScanner* const box = LogIn();
  const std::string name = "ADMINISTRATOR";
  for (std::size_t size = 0; size <= 20; ++size) {
    std::string buffer(20, '#');
    EXPECT_EQ(GetConnectedUserName(box, buffer.data(), size), size == 0 ? 0 : 1);
    std::string expected = size == 0 ? "" : name.substr(0, size - 1);
    expected.resize(size);
    EXPECT_EQ(buffer, expected + std::string(20 - size, '#')) << "size " << size;
  }
}

}  // namespace
}  // namespace quillkit
