// A file of this machine for the length of a test.

#ifndef QUILLKIT_TESTS_TOOLKIT_SCRATCH_FILE_H_
#define QUILLKIT_TESTS_TOOLKIT_SCRATCH_FILE_H_

#include <fstream>
#include <string>
#include <string_view>

#include "platform/files.h"

namespace quillkit {

class ScratchFile {
 public:
  explicit ScratchFile(std::string_view content) : path_(CreateTemporaryFile("QKT")) {
    std::ofstream(path_, std::ios::binary) << content;
  }
  ScratchFile(const ScratchFile&) = delete;
  ScratchFile& operator=(const ScratchFile&) = delete;
  ~ScratchFile() { DeleteFileAt(path_); }

  const char* path() const { return path_.c_str(); }

 private:
  std::string path_;
};

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_TOOLKIT_SCRATCH_FILE_H_
