// Message boxes, redirected, and the texts they show. The system's own box is looked at where the
// library's start shows it.

#include "platform/message_box.h"

#include <gtest/gtest.h>

#include <string>

namespace quillkit {
namespace {

std::string shown;

int Record(const char* text) {
  shown += text;
  return 42;
}

TEST(MessageBoxTest, RedirectionTakesEveryTextAndGivesTheResult) {
  const MessageBoxHandler earlier = SetMessageBoxHandler(Record);
  EXPECT_EQ(ShowMessageBox("first "), 42);
  EXPECT_EQ(ShowMessageBox("second"), 42);
  EXPECT_EQ(SetMessageBoxHandler(earlier), Record);
  EXPECT_EQ(shown, "first second");
}

TEST(ResourceTextTest, TextsAreExact) {
  EXPECT_EQ(LoadResourceText(kSocketsFailedText), "Windows sockets initialization failed.");
  EXPECT_EQ(LoadResourceText(kServerLibraryMissingText),
            "IMSPAPI.DLL not loaded (because not found) !");
  EXPECT_EQ(LoadResourceText(kSettingsKeyText), R"(Software\\Tarvenor\\Ledgerhouse)");
  EXPECT_EQ(LoadResourceText(kSettingsFailedText), "Cannot access the Windows Registry.");
  for (const unsigned id : {0U, 100U, 104U, 106U, 101U + 65536U}) {
    EXPECT_EQ(LoadResourceText(id), "") << id;
  }
}

}  // namespace
}  // namespace quillkit
