#include "examples/temporary_file.h"

#include "examples/failures.h"
#include "examples/text_file.h"
#include "platform/files.h"

namespace quillctl {

TemporaryFile::TemporaryFile(std::string_view bytes) : path_(quillkit::CreateTemporaryFile("QKC")) {
  if (WriteBytes(path_, bytes)) return;
  quillkit::DeleteFileAt(path_);
  throw Refusal("a temporary file cannot be written");
}

TemporaryFile::~TemporaryFile() {
  quillkit::DeleteFileAt(path_);
}

}  // namespace quillctl
