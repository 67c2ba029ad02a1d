#include "quillctl/temporary_file.h"

#include "quillctl/failures.h"

namespace quillctl {

TemporaryFile::TemporaryFile()
    : created(quillkit::CreateTemporaryFile("QKC")), deletion(created.path) {
  if (!created.file.IsOpen()) throw Refusal(kNoTemporaryFile);
}

// Some systems cannot delete an open file.
TemporaryFile::~TemporaryFile() {
  created.file.Close();
  quillkit::DeleteFileAt(created.path);
}

}  // namespace quillctl
