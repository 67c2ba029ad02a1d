#include "import/script_writer.h"

#include "base/secret.h"

namespace quillkit {

ScriptWriter::ScriptWriter() : buffer_(new char[kBufferSize]) {}

ScriptWriter::~ScriptWriter() {
  WipeBytes(buffer_.get(), kBufferSize);
}

bool ScriptWriter::Open(ScriptTarget target) {
  file_ = target.Open();
  if (!file_.IsOpen()) return false;
  file_.WriteAsText();
  return true;
}

bool ScriptWriter::Close() {
  WriteBuffer();
  return file_.Close();
}

void ScriptWriter::WriteBuffer() {
  if (IsGood()) file_.Write({buffer_.get(), size_});
  size_ = 0;
}

}  // namespace quillkit
