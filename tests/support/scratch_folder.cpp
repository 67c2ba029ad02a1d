#include "tests/support/scratch_folder.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <random>
#include <system_error>

namespace quillkit {

std::string ReadBytes(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// Creates a new file each time: some file systems flush a rewritten file to the disk.
void WriteBytes(const std::string& path, std::string_view bytes) {
  std::filesystem::remove(path);
  std::ofstream file(path, std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

ScratchFolder::ScratchFolder() {
  std::random_device number;
  do {
    path = std::filesystem::temp_directory_path() /
           ("quillkit-test-" + std::to_string(number() % 1'000'000'000));
  } while (!std::filesystem::create_directory(path));
}

ScratchFolder::~ScratchFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path, ignored);
}

std::string ScratchFolder::Write(std::string_view name, std::string_view bytes) const {
  std::string written = PathOf(name);
  WriteBytes(written, bytes);
  return written;
}

std::vector<std::string> ScratchFolder::Names() const {
  std::vector<std::string> names;
  for (const auto& each : std::filesystem::directory_iterator(path)) {
    names.push_back(each.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace quillkit
