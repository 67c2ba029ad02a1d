// A temporary folder for one test. The destructor deletes it with its contents.

#ifndef QUILLKIT_TESTS_SUPPORT_SCRATCH_FOLDER_H_
#define QUILLKIT_TESTS_SUPPORT_SCRATCH_FOLDER_H_

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace quillkit {

// ReadBytes returns the bytes of a file, or "" if it cannot be read. WriteBytes writes a new file.
std::string ReadBytes(const std::string& path);
void WriteBytes(const std::string& path, std::string_view bytes);

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

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_SUPPORT_SCRATCH_FOLDER_H_
