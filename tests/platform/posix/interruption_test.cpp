// Pipes that are read and written while signals arrive whose handler interrupts system calls.

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/time.h>

#include <chrono>
#include <csignal>
#include <fstream>
#include <thread>

#include "import/convert_delimited_text.h"
#include "quillctl/text_file.h"
#include "tests/support/scratch_folder.h"

namespace quillkit {
namespace {

volatile std::sig_atomic_t signals = 0;

extern "C" void CountSignal(int) {
  signals = signals + 1;
}

// Sends SIGALRM every millisecond to the threads that do not block it.
class SteadySignals {
 public:
  SteadySignals() {
    signals = 0;
    struct sigaction action = {};
    action.sa_handler = CountSignal;
    sigaction(SIGALRM, &action, &before);
    SetPeriod(1000);
  }
  SteadySignals(const SteadySignals&) = delete;
  SteadySignals& operator=(const SteadySignals&) = delete;
  ~SteadySignals() {
    SetPeriod(0);
    std::this_thread::sleep_for(std::chrono::milliseconds(2));  // the last one may be on its way
    sigaction(SIGALRM, &before, nullptr);
  }

 private:
  static void SetPeriod(suseconds_t microseconds) {
    const itimerval period = {{0, microseconds}, {0, microseconds}};
    setitimer(ITIMER_REAL, &period, nullptr);
  }

  struct sigaction before = {};
};

class InterruptionTest : public testing::Test {
 protected:
  InterruptionTest() {
    for (const std::string& each : {in, out}) EXPECT_EQ(mkfifo(each.c_str(), 0600), 0);
  }

  // The other ends of the pipes: opens each late, writes `text` into one with pauses, and returns
  // what comes out of the other.
  static void ServePipes(std::string_view text, std::string* result, const std::string& in,
                         const std::string& out) {
    sigset_t alarm;
    sigemptyset(&alarm);
    sigaddset(&alarm, SIGALRM);
    pthread_sigmask(SIG_BLOCK, &alarm, nullptr);
    const auto pause = [] { std::this_thread::sleep_for(std::chrono::milliseconds(20)); };
    pause();
    std::ofstream writer(in);
    pause();
    writer << text.substr(0, 10) << std::flush;
    pause();
    std::thread rest([&] {
      writer << text.substr(10);
      writer.close();
    });
    std::ifstream reader(out);
    pause();
    result->assign(std::istreambuf_iterator<char>(reader), {});
    rest.join();
  }

  const ScratchFolder folder;
  const std::string in = folder.PathOf("in");
  const std::string out = folder.PathOf("out");
};

TEST_F(InterruptionTest, ConversionGoesOn) {
  std::string rows;
  while (rows.size() < 400'000) rows += "Ann Lee,box" + std::to_string(rows.size()) + "\n";
  const std::string source = folder.Write("source", rows);
  const std::string script = folder.PathOf("script");
  const auto convert = [](const std::string& from, const std::string& to) {
    return ConvertDelimitedText({.sourcePath = from.c_str(), .script = to.c_str()},
                                {.targetBook = 0, .columnMap = {}});
  };
  ASSERT_EQ(convert(source, script), 0);

  std::string result;
  std::thread otherEnds([&] { ServePipes(rows, &result, in, out); });
  {
    const SteadySignals interruptions;
    EXPECT_EQ(convert(in, out), 0);
  }
  otherEnds.join();
  EXPECT_GT(signals, 0);
  EXPECT_EQ(result, ReadBytes(script));
}

TEST_F(InterruptionTest, WholeFilesAreReadAndWritten) {
  const std::string text(400'000, 'x');
  std::string result;
  std::thread otherEnds([&] { ServePipes(text, &result, in, out); });
  {
    const SteadySignals interruptions;
    quillctl::WriteTextFile(out, quillctl::ReadTextFile(in, text.size()));
  }
  otherEnds.join();
  EXPECT_GT(signals, 0);
  EXPECT_EQ(result, text);
}

}  // namespace
}  // namespace quillkit
