// Temporary files, in what is POSIX's own.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <thread>

#include "import/import_address_book.h"
#include "platform/files.h"
#include "tests/support/scratch_folder.h"
#include "tests/support/temporary_folder.h"

namespace quillkit {
namespace {

namespace fs = std::filesystem;

class PosixTemporaryFileTest : public testing::Test {
 protected:
  const ScratchFolder folder;
  const TemporaryFolder redirected{folder.Path().string()};
};

TEST_F(PosixTemporaryFileTest, EmptyVariableIsSkipped) {
  ASSERT_EQ(setenv("TMPDIR", "", 1), 0);
  EXPECT_EQ(fs::path(CreateTemporaryFile("QK7").path).parent_path(), folder.Path());
}

TEST_F(PosixTemporaryFileTest, IsTheUsersAloneAndNotInherited) {
  const CreatedFile created = CreateTemporaryFile("QK7");
  EXPECT_EQ(fs::status(created.path).permissions(), fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_EQ(fcntl(created.file.Descriptor(), F_GETFD), FD_CLOEXEC);
}

// While an import waits for its source, a link takes the name of its script.
TEST_F(PosixTemporaryFileTest, ScriptDoesNotFollowALinkInItsPlace) {
  const ScratchFolder elsewhere;
  const std::string source = elsewhere.PathOf("pipe");
  ASSERT_EQ(mkfifo(source.c_str(), 0600), 0);
  const std::string victim = elsewhere.Write("victim", "as it was");
  std::thread intruder([&] {
    std::ofstream pipe(source);  // opened as soon as the import opens it
    const std::string script = folder.PathOf(folder.Names().front());
    fs::rename(script, elsewhere.PathOf("script"));
    fs::create_symlink(victim, script);
    pipe << "dn:\ncn: Ann\nmail: box\n";
  });
  ImportOptions options = {};
  options.format = ImportFormatDirectory;
  EXPECT_EQ(ImportAddressBookFile(nullptr, source.c_str(), &options), -1) << "no scanner";
  intruder.join();
  EXPECT_EQ(ReadBytes(victim), "as it was");
  EXPECT_EQ(ReadBytes(elsewhere.PathOf("script")), "Ann\nbox\n");
}

}  // namespace
}  // namespace quillkit
