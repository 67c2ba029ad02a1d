// The library where there is no server library: a program of its own, in a folder without one.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "bridge/the_agent.h"
#include "platform/message_box.h"
#include "toolkit/quillkit.h"
#include "toolkit/toolkit_app.h"

namespace quillkit {
namespace {

std::vector<std::string> shown;

int Remember(const char* text) {
  shown.emplace_back(text);
  return 1;
}

TEST(WithoutServer, TheStartFailsWithTwoMessages) {
  const MessageBoxHandler earlier = SetMessageBoxHandler(Remember);
  EXPECT_FALSE(CToolkitApp::Start());
  CToolkitApp::Stop();
  SetMessageBoxHandler(earlier);
  EXPECT_EQ(shown, (std::vector<std::string>{"Cannot Load IMSPAPI.DLL",
                                             "IMSPAPI.DLL not loaded (because not found) !"}));
  EXPECT_EQ(GetLastToolkitError(), 0);
}

TEST(WithoutServer, EveryCallGives20) {
  EXPECT_EQ(LogToQuillbox("127.0.0.1", "ADMINISTRATOR", "quill", "", 1), nullptr);
  EXPECT_EQ(GetLastToolkitError(), 20);
  Logout();
  Exit();
  EXPECT_EQ(GetLastToolkitError(), 20);
}

}  // namespace
}  // namespace quillkit
