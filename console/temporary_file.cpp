#include "console/temporary_file.h"

#include "console/failure.h"

namespace console {

TemporaryFile::TemporaryFile()
    : created(quillkit::CreateTemporaryFile("QKC")), deletion(created.path) {
  if (!created.file.IsOpen()) throw Refusal(kNoTemporaryFile);
}

TemporaryFile::TemporaryFile(std::string_view bytes) : TemporaryFile() {
  created.file.Write(bytes);
  if (!created.file.Close()) throw Refusal(kNoTemporaryFile);
}

// Some systems cannot delete an open file.
TemporaryFile::~TemporaryFile() {
  created.file.Close();
  quillkit::DeleteFileAt(created.path);
}

}  // namespace console
