// Where this process puts its temporary files, redirected as long as the object lives.

#ifndef QUILLKIT_TESTS_SUPPORT_TEMPORARY_FOLDER_H_
#define QUILLKIT_TESTS_SUPPORT_TEMPORARY_FOLDER_H_

#include <string>

namespace quillkit {

class TemporaryFolder {
 public:
  // `path` need not exist.
  explicit TemporaryFolder(const std::string& path);
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder();

 private:
  std::string before_;  // what the variable held; empty without one
};

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_SUPPORT_TEMPORARY_FOLDER_H_
