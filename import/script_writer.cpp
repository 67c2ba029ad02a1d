#include "import/script_writer.h"

namespace quillkit {

ScriptWriter::ScriptWriter() : buffer_(new char[kBufferSize]) {}

ScriptWriter::~ScriptWriter() {
  if (file_ != nullptr) std::fclose(file_);
}

bool ScriptWriter::Open(const char* path) {
  if (path == nullptr) return false;
  file_ = std::fopen(path, "w");
  return file_ != nullptr;
}

bool ScriptWriter::Close() {
  WriteBuffer();
  if (std::fclose(file_) != 0) good_ = false;
  file_ = nullptr;
  return good_;
}

std::size_t ScriptWriter::FillUp(std::string_view text) {
  std::size_t taken = 0;
  while (text.size() - taken > kBufferSize - size_) {
    const std::size_t room = kBufferSize - size_;
    std::memcpy(buffer_.get() + size_, text.data() + taken, room);
    size_ = kBufferSize;
    taken += room;
    WriteBuffer();
  }
  return taken;
}

void ScriptWriter::WriteBuffer() {
  if (good_ && size_ != 0) good_ = std::fwrite(buffer_.get(), 1, size_, file_) == size_;
  size_ = 0;
}

}  // namespace quillkit
