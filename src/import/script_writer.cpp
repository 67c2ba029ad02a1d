#include "import/script_writer.h"

namespace quillkit {

ScriptWriter::ScriptWriter() : buffer_(new char[kBufferSize]) {}

ScriptWriter::~ScriptWriter() {
  if (file_ != nullptr) std::fclose(file_);
}

bool ScriptWriter::Open(const char* path) {
  if (path == nullptr) return false;
  file_ = std::fopen(path, "w");
  if (file_ == nullptr) return false;
  std::setvbuf(file_, nullptr, _IONBF, 0);  // the script has its own buffer
  return true;
}

bool ScriptWriter::Close() {
  WriteBuffer();
  if (std::fclose(file_) != 0) good_ = false;
  file_ = nullptr;
  return good_;
}

void ScriptWriter::WriteBuffer() {
  if (good_ && size_ != 0) good_ = std::fwrite(buffer_.get(), 1, size_, file_) == size_;
  size_ = 0;
}

}  // namespace quillkit
