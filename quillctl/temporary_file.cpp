#include "quillctl/temporary_file.h"

#include "quillctl/failures.h"

namespace quillctl {

TemporaryFile::TemporaryFile() : created_(quillkit::CreateTemporaryFile("QKC")) {
  if (!created_.file.IsOpen()) throw Refusal(kNoTemporaryFile);
}

TemporaryFile::TemporaryFile(std::string_view bytes) : TemporaryFile() {
  created_.file.Write(bytes);
  if (!created_.file.Close()) throw Refusal(kNoTemporaryFile);
}

// A file that is open cannot be deleted on every system.
TemporaryFile::~TemporaryFile() {
  created_.file.Close();
  quillkit::DeleteFileAt(created_.path);
}

}  // namespace quillctl
