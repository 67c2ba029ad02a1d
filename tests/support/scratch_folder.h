// Files and folders of one test.

#ifndef QUILLKIT_TESTS_SUPPORT_SCRATCH_FOLDER_H_
#define QUILLKIT_TESTS_SUPPORT_SCRATCH_FOLDER_H_

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/environment_variable.h"

namespace quillkit {

// ReadBytes returns the bytes of a file, or "" if it cannot be read. WriteBytes writes a new file.
std::string ReadBytes(const std::string& path);
void WriteBytes(const std::string& path, std::string_view bytes);

// A new folder. The destructor deletes it with its contents.
class ScratchFolder {
 public:
  ScratchFolder();
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;
  ~ScratchFolder();

  const std::filesystem::path& Path() const { return path; }

  // The path of a file in the folder. The file need not exist.
  std::string PathOf(std::string_view name) const { return (path / name).string(); }

  // Writes a file with these bytes and returns its path.
  std::string Write(std::string_view name, std::string_view bytes) const;

  // The names of all files and folders in the folder, sorted.
  std::vector<std::string> Names() const;

 private:
  std::filesystem::path path;
};

// Redirects the temporary files of this process to another folder while the object exists.
class TemporaryFolder {
 public:
  // `path` need not exist.
  explicit TemporaryFolder(const std::string& path) : posix("TMPDIR", path), win32("TMP", path) {}

 private:
  // Each system reads its own variable first.
  const EnvironmentVariable posix;
  const EnvironmentVariable win32;
};

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_SUPPORT_SCRATCH_FOLDER_H_
