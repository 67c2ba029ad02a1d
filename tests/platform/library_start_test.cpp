// How the library starts and ends in a process of its own, with and without a server library.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "platform/message_box.h"
#include "tests/platform/process.h"
#include "tests/support/program_run.h"
#include "tests/support/scratch_folder.h"

namespace quillkit {
namespace {

using namespace std::string_literals;

// If the process ends during a session, the system unloads the server library and the library in an
// unspecified order.
TEST(LibraryStartTest, ShowsNoMessageIfThereIsAServerLibrary) {
  for (const char* each : {"", " stay"}) {
    EXPECT_EQ(OutputOf(ProgramFolder(), kProbeFile + std::string(each)), "loaded\nstatus 0\nexit 0")
        << each;
  }
}

TEST(LibraryStartTest, ShowsTwoMessagesIfThereIsNoServerLibrary) {
  const ScratchFolder folder;
  for (const char* each : {kLibraryFile, kProbeFile}) {
    std::filesystem::copy_file(ProgramFolder() / each, folder.PathOf(each));
  }
  EXPECT_EQ(OutputOf(folder.Path(), kProbeFile),
            "Cannot Load IMSPAPI.DLL\nIMSPAPI.DLL not loaded (because not found) !\n"s +
                kStartWithoutServerLibrary + "exit 0");
}

// Two other texts are checked by the tests that show them.
TEST(LibraryStartTest, ResourceTextsAreExactAndUnknownIdsHaveNone) {
  EXPECT_EQ(LoadResourceText(kSocketsFailedText), "Windows sockets initialization failed.");
  EXPECT_EQ(LoadResourceText(kSettingsKeyText), R"(Software\\Tarvenor\\Ledgerhouse)");
  for (const unsigned id : {0U, 100U, 104U, 106U, 101U + 65536U}) {
    EXPECT_EQ(LoadResourceText(id), "") << id;
  }
}

}  // namespace
}  // namespace quillkit
