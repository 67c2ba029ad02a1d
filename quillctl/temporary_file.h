// A file in the system's folder for temporary ones that lasts as long as this object.

#ifndef QUILLCTL_TEMPORARY_FILE_H_
#define QUILLCTL_TEMPORARY_FILE_H_

#include <string>
#include <string_view>
#include <utility>

#include "platform/files.h"

namespace quillctl {

inline constexpr const char* kNoTemporaryFile =
    "a temporary file cannot be written; the variable TMPDIR, or TMP, names its folder";

class TemporaryFile {
 public:
  // Creates it, empty and open for writing. Throws a Refusal when that fails.
  TemporaryFile();
  // Creates it with these bytes, and closes it. Throws a Refusal when that fails.
  explicit TemporaryFile(std::string_view bytes);
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile();

  const std::string& path() const { return created.path; }

  // The open file of an empty one. Called once.
  quillkit::OpenFile TakeFile() { return std::move(created.file); }

 private:
  quillkit::CreatedFile created;
};

}  // namespace quillctl

#endif  // QUILLCTL_TEMPORARY_FILE_H_
