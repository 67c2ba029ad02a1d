#include "examples/temporary_file.h"

#include <fstream>

#include "examples/failures.h"
#include "platform/files.h"

namespace quillctl {

TemporaryFile::TemporaryFile(std::string_view bytes) : path_(quillkit::CreateTemporaryFile("QKC")) {
  std::ofstream file(path_, std::ios::binary);
  file << bytes;
  file.close();
  if (file) return;
  quillkit::DeleteFileAt(path_);
  throw Refusal("a temporary file cannot be written");
}

TemporaryFile::~TemporaryFile() {
  quillkit::DeleteFileAt(path_);
}

}  // namespace quillctl
