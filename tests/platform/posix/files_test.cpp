// The POSIX part of files: permissions, links, and signals that interrupt system calls.

#include "platform/files.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <list>
#include <thread>

#include "import/conversion.h"
#include "import/convert_file.h"
#include "import/import_address_book.h"
#include "platform/written_file.h"
#include "tests/import/option_record.h"
#include "tests/support/scratch_folder.h"

namespace quillkit {
namespace {

namespace fs = std::filesystem;

class PosixFilesTest : public testing::Test {
 protected:
  PosixFilesTest() { EXPECT_EQ(mkfifo(pipe.c_str(), 0600), 0); }

  const ScratchFolder folder;
  const std::string pipe = folder.PathOf("pipe");
};

TEST_F(PosixFilesTest, SignalsDoNotInterruptFileOperations) {
  struct sigaction action = {};
  action.sa_handler = [](int) {};
  ASSERT_EQ(sigaction(SIGUSR1, &action, nullptr), 0);
  std::atomic<bool> isOver = false;
  std::thread signals([&, receiver = pthread_self()] {
    while (!isOver) {
      pthread_kill(receiver, SIGUSR1);
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
  });
  // The other end opens late, and stops in the middle: each operation waits for it.
  const std::string text(400'000, 'x');  // several times what a pipe holds
  folder.Write("text", text);
  const std::string command = "cd '" + folder.Path().string() +
                              "'; timeout 20 sh -c 'sleep 0.05; " +
                              "(head -c 10 text; sleep 0.05; tail -c +11 text) > pipe; sleep 0.05; "
                              "(sleep 0.05; cat) < pipe > written'";
  std::thread otherEnd([&] { EXPECT_EQ(std::system(command.c_str()), 0); });
  std::string read(text.size() + 1, '\0');
  OpenFile file = OpenFile::ToRead(pipe.c_str());
  read.resize(file.Read(read.data(), read.size()));
  EXPECT_TRUE(file.Close());
  file = OpenFile::ToWrite(pipe.c_str());
  EXPECT_TRUE(file.Write(text) && file.Close());
  otherEnd.join();
  isOver = true;
  signals.join();
  EXPECT_TRUE(read == text) << read.size() << " bytes were read";
  EXPECT_TRUE(ReadBytes(folder.PathOf("written")) == text);
}

TEST_F(PosixFilesTest, WriteFileWholeReplacesTheFileAndKeepsItsPermissions) {
  const struct {
    int before;  // 0: the file does not exist
    Readers readers;
    int after;
  } kCases[] = {{0444, Readers::kUsual, 0444},
                {0642, Readers::kOwner, 0642},
                {0, Readers::kUsual, 0644},
                {0, Readers::kOwner, 0600}};
  const std::string path = folder.PathOf(std::string(255, 'n'));  // the longest name
  const std::string link = folder.PathOf("link");
  const mode_t mask = umask(022);
  for (const auto& each : kCases) {
    for (const std::string& left : {path, link}) fs::remove(left);
    if (each.before != 0) {
      WriteBytes(path, "old");
      fs::permissions(path, fs::perms(each.before));
      fs::create_hard_link(path, link);
    }
    EXPECT_TRUE(WriteFileWhole(path, "new", each.readers));
    EXPECT_EQ(ReadBytes(path), "new");
    EXPECT_EQ(fs::status(path).permissions(), fs::perms(each.after));
    EXPECT_EQ(ReadBytes(link), each.before != 0 ? "old" : "")
        << "the file must be replaced, not rewritten";
  }
  umask(mask);
}

TEST_F(PosixFilesTest, TemporaryFileIsPrivateAndInTheFirstFolderOfTheEnvironment) {
  const char* const kVariables[] = {"TMPDIR", "TMP", "TEMP", "TEMPDIR"};
  std::list<EnvironmentVariable> set;
  for (const char* each : kVariables) {
    fs::create_directory(folder.PathOf(each));
    set.emplace_back(each, folder.PathOf(each));
  }
  for (const char* each : kVariables) {
    const CreatedFile created = CreateTemporaryFile("QK7");
    EXPECT_EQ(fs::path(created.path).parent_path(), folder.PathOf(each));
    EXPECT_EQ(fs::status(created.path).permissions(), fs::perms(0600));
    EXPECT_EQ(fcntl(created.file.Descriptor(), F_GETFD), FD_CLOEXEC);
    ASSERT_EQ(setenv(each, "", 1), 0);
  }
  const CreatedFile created = CreateTemporaryFile("QK7");
  EXPECT_EQ(fs::path(created.path).parent_path(), "/tmp");
  DeleteFileAt(created.path);
}

// While an import waits for its source, another thread replaces its script by a link.
TEST_F(PosixFilesTest, ImportDoesNotFollowALinkThatReplacesItsScript) {
  const ScratchFolder scripts;
  const TemporaryFolder redirected(scripts.Path().string());
  const std::string victim = folder.Write("victim", "as it was");
  std::thread intruder([&] {
    std::ofstream source(pipe);  // opened as soon as the import opens it
    const std::string script = scripts.PathOf(scripts.Names().front());
    fs::rename(script, folder.PathOf("script"));
    fs::create_symlink(victim, script);
    source << "dn:\ncn: Ann\nmail: box\n";
  });
  ImportOptions options = {};
  options.format = ImportFormatDirectory;
  EXPECT_EQ(ImportAddressBookFile(nullptr, pipe.c_str(), &options), -1)
      << "the import fails without a scanner";
  intruder.join();
  EXPECT_EQ(ReadBytes(victim), "as it was");
  EXPECT_EQ(ReadBytes(folder.PathOf("script")), "Ann\nbox\n");
}

// During the first line, the descriptor of the source becomes that of a folder.
TEST_F(PosixFilesTest, ConversionReportsASourceThatFailsAfterItsFirstBlock) {
  struct : RowObserver {
    void OnLine(std::uint64_t, std::span<const std::string_view>) override {
      EXPECT_EQ(dup2(unreadable.Descriptor(), source), source);
    }
    const OpenFile unreadable = OpenFile::ToRead("/");
    const int source = OpenFile::ToRead("/").Descriptor();  // closed, so that it is the next one
  } observer;
  EXPECT_EQ(ConvertFile({.sourcePath = folder.Write("source", std::string(300'000, 'x')).c_str(),
                         .script = folder.PathOf("script").c_str(),
                         .observer = &observer},
                        *OptionRecord(ImportFormatDirectory)),
            kSourceFailed);
}

}  // namespace
}  // namespace quillkit
