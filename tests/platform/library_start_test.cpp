// How the library starts and ends in a process of its own, with and without a server library.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "platform/message_box.h"
#include "tests/platform/system.h"
#include "tests/support/scratch_folder.h"

namespace quillkit {
namespace {

namespace fs = std::filesystem;

constexpr const char* kProbe = "quillkit_start_probe";

TEST(LibraryStartTest, WithAServerLibraryItLoadsSilently) {
  const Outcome outcome = RunProgram(ProgramFolder(), kProbe, "load");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.output, "loaded\nstatus 0\n");
}

// The system ends the server library and the library in an order of its own.
TEST(LibraryStartTest, ProcessMayEndInASession) {
  const Outcome outcome = RunProgram(ProgramFolder(), kProbe, "end");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.output, "");
}

TEST(LibraryStartTest, WithoutAServerLibraryItTellsTwice) {
  const ScratchFolder folder;
  for (const std::string& file : {std::string(kLibraryFile), ProgramFile(kProbe)}) {
    fs::copy_file(fs::path(ProgramFolder()) / file, folder.PathOf(file));
  }
  const Outcome outcome = RunProgram(folder.Path().string(), kProbe, "load");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.output, "Cannot Load IMSPAPI.DLL\n" +
                                LoadResourceText(kServerLibraryMissingText) + "\n" +
                                kStartWithoutServerLibrary);
}

}  // namespace
}  // namespace quillkit
