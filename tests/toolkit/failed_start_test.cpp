// POSIX: the shared library stays loaded after a failed start, and answers 20.

#include <gtest/gtest.h>

#include <string>

#include "platform/module.h"
#include "tests/toolkit/exports.h"

namespace quillkit {
namespace {

TEST(FailedStart, LeavesTheLibraryLoadedWithStatus20) {
  testing::internal::CaptureStderr();
  const ModuleHandle module = LoadModule("Quillkit");
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "Cannot Load IMSPAPI.DLL\nIMSPAPI.DLL not loaded (because not found) !\n");
  ASSERT_NE(module, nullptr);
  const Exports toolkit(module);
  ASSERT_EQ(toolkit.missing(), std::vector<std::string>());
  EXPECT_EQ(toolkit.LogToQuillbox("127.0.0.1", "ADMINISTRATOR", "quill", "", 1), nullptr);
  EXPECT_EQ(toolkit.GetLastToolkitError(), 20);
  toolkit.Exit();
  UnloadModule(module);
}

}  // namespace
}  // namespace quillkit
