#include <chrono>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <system_error>
#include <thread>

#include "console/failure.h"
#include "quillbox/commands.h"

namespace quillbox {
namespace {

constexpr std::chrono::milliseconds kPause{100};

// Prints the file from this offset and returns its new end. A file that was emptied is printed from
// its beginning.
std::uintmax_t PrintFrom(const std::string& path, std::uintmax_t offset) {
  std::error_code failure;
  const std::uintmax_t size = std::filesystem::file_size(path, failure);
  if (failure || size == offset) return offset;
  if (size < offset) offset = 0;
  std::ifstream file(path, std::ios::binary);
  file.seekg(static_cast<std::streamoff>(offset));
  std::string text(static_cast<std::size_t>(size - offset), '\0');
  file.read(text.data(), static_cast<std::streamsize>(text.size()));
  text.resize(static_cast<std::size_t>(file.gcount()));
  std::cout << text << std::flush;
  return offset + text.size();
}

}  // namespace

void ShowJournal(const std::string& path, bool follow) {
  if (!std::ifstream(path)) {
    if (!follow) throw console::Refusal("cannot read " + path);
    std::cerr << "quillbox: waiting for " << path << std::endl;
  }
  std::uintmax_t offset = PrintFrom(path, 0);
  while (follow && std::cout) {
    std::this_thread::sleep_for(kPause);
    offset = PrintFrom(path, offset);
  }
}

}  // namespace quillbox
