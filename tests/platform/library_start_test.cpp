// How the library starts and ends in a process of its own, with and without a server library.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "platform/message_box.h"
#include "tests/platform/process.h"
#include "tests/support/scratch_folder.h"

namespace quillkit {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

// The folder of the running program.
fs::path ProgramFolder() {
  return fs::absolute(testing::internal::GetArgvs().front()).parent_path();
}

// Runs the start probe of a folder in that folder. Returns what it printed and its exit status.
std::string RunProbe(const fs::path& folder, const std::string& argument) {
  const ScratchFolder scratch;
  const std::string report = scratch.PathOf("report");
  const fs::path before = fs::current_path();
  fs::current_path(folder);
  const std::string program = (fs::path(".") / kProbeFile).make_preferred().string();
  const int status = std::system((program + " " + argument + " > \"" + report + "\"").c_str());
  fs::current_path(before);
  std::ifstream text(report);  // as text, whose lines end alike everywhere
  return std::string(std::istreambuf_iterator<char>(text), {}) + "exit " + std::to_string(status);
}

// If the process ends during a session, the system unloads the server library and the library in an
// unspecified order.
TEST(LibraryStartTest, ShowsNoMessageIfThereIsAServerLibrary) {
  for (const char* each : {"", "stay"}) {
    EXPECT_EQ(RunProbe(ProgramFolder(), each), "loaded\nstatus 0\nexit 0") << each;
  }
}

TEST(LibraryStartTest, ShowsTwoMessagesIfThereIsNoServerLibrary) {
  const ScratchFolder folder;
  for (const char* each : {kLibraryFile, kProbeFile}) {
    fs::copy_file(ProgramFolder() / each, folder.PathOf(each));
  }
  EXPECT_EQ(RunProbe(folder.Path(), ""),
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
