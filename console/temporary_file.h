// Temporary files.

#ifndef CONSOLE_TEMPORARY_FILE_H_
#define CONSOLE_TEMPORARY_FILE_H_

#include <string>
#include <string_view>
#include <utility>

#include "console/system/deferred_termination.h"
#include "platform/files.h"

namespace console {

inline constexpr const char* kNoTemporaryFile =
    "cannot write a temporary file; check the folder in the variable TMPDIR (on Windows: TMP)";

// A file in the system's folder for temporary files. The destructor deletes it, and so does a
// request that terminates the program.
class TemporaryFile {
 public:
  // Creates an empty file, open for writing. Throws a Refusal on failure.
  TemporaryFile();
  // Creates a file with these bytes and closes it. Throws a Refusal on failure.
  explicit TemporaryFile(std::string_view bytes);
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile();

  const std::string& path() const { return created.path; }

  // Passes the open file to the caller. Call it once.
  quillkit::OpenFile ReleaseFile() { return std::move(created.file); }

 private:
  quillkit::CreatedFile created;
  DeletedOnTermination deletion;
};

}  // namespace console

#endif  // CONSOLE_TEMPORARY_FILE_H_
