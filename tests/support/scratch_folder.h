// A folder of a test's own. It goes when the object does, with all that is in it.

#ifndef QUILLKIT_TESTS_SUPPORT_SCRATCH_FOLDER_H_
#define QUILLKIT_TESTS_SUPPORT_SCRATCH_FOLDER_H_

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace quillkit {

// The bytes of a file, "" when it cannot be read; and a file of these bytes.
std::string ReadBytes(const std::string& path);
void WriteBytes(const std::string& path, std::string_view bytes);

class ScratchFolder {
 public:
  ScratchFolder();
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;
  ~ScratchFolder();

  const std::filesystem::path& Path() const { return path; }

  // The path of something in the folder, there or not.
  std::string PathOf(std::string_view name) const { return (path / name).string(); }

  // Writes a file of these bytes and gives its path.
  std::string Write(std::string_view name, std::string_view bytes) const;

  // What is in the folder, in order.
  std::vector<std::string> Names() const;

 private:
  std::filesystem::path path;
};

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_SUPPORT_SCRATCH_FOLDER_H_
