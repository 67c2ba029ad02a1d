// What all converters have in common: the files they cannot read or write, and the window whose
// messages they handle.

#include "import/conversion.h"

#include <chrono>
#include <thread>

#include "import/convert_directory_export.h"
#include "platform/thread_timer.h"
#include "tests/import/converter_fixture.h"

namespace quillkit {
namespace {

class ConversionTest : public ConverterTest, public testing::WithParamInterface<Converter> {
 protected:
  static std::int32_t Run(const char* source, const char* script) {
    return RunConverter(GetParam(), source, script, {.clearFirst = true, .targetBook = 0});
  }
};

INSTANTIATE_TEST_SUITE_P(Converters, ConversionTest, testing::ValuesIn(kConverters));

TEST_P(ConversionTest, LeavesTheScriptAloneWithoutASource) {
  const std::string script = folder.Write("script", "as it was");
  EXPECT_EQ(Run(folder.PathOf("missing").c_str(), script.c_str()), -2);
  EXPECT_EQ(Run("", script.c_str()), -2);
  EXPECT_EQ(Run(nullptr, script.c_str()), -2);
  EXPECT_EQ(Run(folder.Path().string().c_str(), script.c_str()), -2);
  EXPECT_EQ(Run(nullptr, nullptr), -2) << "the source is opened first";
  EXPECT_EQ(ReadBytes(script), "as it was");
}

TEST_P(ConversionTest, FailsWithoutAScript) {
  const std::string source = folder.Write("source", "a,b\n");
  EXPECT_EQ(Run(source.c_str(), (folder.Path() / "missing" / "script").string().c_str()), -1);
  EXPECT_EQ(Run(source.c_str(), folder.Path().string().c_str()), -1);
  EXPECT_EQ(Run(source.c_str(), ""), -1);
  EXPECT_EQ(Run(source.c_str(), nullptr), -1);
}

TEST_P(ConversionTest, ReplacesTheScript) {
  const std::string source = folder.Write("source", "");
  const std::string script = folder.Write("script", std::string(100'000, 'x'));
  EXPECT_EQ(Run(source.c_str(), script.c_str()), 0);
  EXPECT_LT(ReadBytes(script).size(), 10U);
}

// A script that does not fit its disk is not taken for a whole one, be it short or long.
TEST_P(ConversionTest, FailsOnAFullDisk) {
  const char* const fullDisk = "/dev/full";
  if (!std::filesystem::exists(fullDisk)) GTEST_SKIP() << "only Linux has a disk that is full";
  std::string rows = "Mailbox,a,b,n,SMTP:box1%\ndn:\ncn: Ann\nmail: box\n";
  EXPECT_EQ(Run(folder.Write("source", rows).c_str(), fullDisk), -1);
  while (rows.size() < 1'000'000) rows += rows;
  EXPECT_EQ(Run(folder.Write("source", rows).c_str(), fullDisk), -1);
}

TEST_P(ConversionTest, FailsWhereTheSourceCannotBeReadToItsEnd) {
  const char* const unreadable = "/proc/self/mem";  // opens, and has nothing at its beginning
  if (!std::filesystem::exists(unreadable)) {
    GTEST_SKIP() << "only Linux has a file that opens and cannot be read";
  }
  EXPECT_EQ(Run(unreadable, folder.PathOf("script").c_str()), -2);
}

int timerRuns = 0;

// Messages are handled for a window alone: the application's timers run meanwhile.
TEST_F(ConverterTest, HandlesTheMessagesOfAWindow) {
  const std::string source = folder.Write("source", "a\nb\n");
  const std::string script = folder.PathOf("script");
  const auto convertLater = [&](WindowHandle window) {
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    ConvertDirectoryExport({.sourcePath = source.c_str(),
                            .script = script.c_str(),
                            .isAdmin = true,
                            .pumpWindow = window,
                            .restoreCursor = true});
  };
  timerRuns = 0;
  const TimerId timer = StartThreadTimer(10, [] { ++timerRuns; });
  convertLater(nullptr);
  EXPECT_EQ(timerRuns, 0);
  int noWindow = 0;  // a handle that names none
  convertLater(&noWindow);
  EXPECT_GT(timerRuns, 0);
  StopThreadTimer(timer);
}

}  // namespace
}  // namespace quillkit
