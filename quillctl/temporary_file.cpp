#include "quillctl/temporary_file.h"

#include "platform/files.h"
#include "platform/written_file.h"
#include "quillctl/failures.h"

namespace quillctl {

TemporaryFile::TemporaryFile(std::string_view bytes) : path_(quillkit::CreateTemporaryFile("QKC")) {
  if (quillkit::WriteFileInPlace(path_, bytes)) return;
  quillkit::DeleteFileAt(path_);
  throw Refusal(kNoTemporaryFile);
}

TemporaryFile::~TemporaryFile() {
  quillkit::DeleteFileAt(path_);
}

}  // namespace quillctl
