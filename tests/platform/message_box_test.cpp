// The texts of message boxes. The boxes are looked at where the library's start shows one and, in
// another's hands, where settings fail.

#include "platform/message_box.h"

#include <gtest/gtest.h>

#include <string>

namespace quillkit {
namespace {

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
