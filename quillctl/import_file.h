// The file that an import reads, as often as it needs to.

#ifndef QUILLCTL_IMPORT_FILE_H_
#define QUILLCTL_IMPORT_FILE_H_

#include <fstream>
#include <optional>
#include <string>

#include "console/temporary_file.h"

namespace quillctl {

// Standard input ("-"), a pipe or a device is copied to a temporary file, which is deleted at once
// where the system can do that, unless its path is needed.
class ImportFile {
 public:
  // Throws a UsageError if the file cannot be read, and a Refusal if it cannot be copied.
  ImportFile(const std::string& newPath, bool needsPath);
  ImportFile(const ImportFile&) = delete;
  ImportFile& operator=(const ImportFile&) = delete;
  ~ImportFile() = default;

  // Returns the stream, at the beginning of the file.
  std::istream& Rewind();

  // Throws a Refusal if a read of the stream has failed.
  void RequireGood() const;

  // Returns the bytes between two positions, fewer at the end of the file.
  std::string Bytes(std::uint64_t begin, std::uint64_t end);

  // Appends these bytes to a file.
  void Copy(std::uint64_t begin, std::uint64_t end, quillkit::OpenFile& to);

  // The path under which the library can read the file. REQUIRES: the path is needed.
  const std::string& Path() const { return copy ? copy->path() : path; }

  // The file's name for messages.
  std::string Name() const;

 private:
  void CopyFrom(std::istream& from, bool needsPath);

  std::string path;
  std::optional<console::TemporaryFile> copy;
  std::ifstream stream;
};

}  // namespace quillctl

#endif  // QUILLCTL_IMPORT_FILE_H_
