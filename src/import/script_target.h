// Where a converter writes its script.

#ifndef QUILLKIT_IMPORT_SCRIPT_TARGET_H_
#define QUILLKIT_IMPORT_SCRIPT_TARGET_H_

#include <utility>

#include "platform/open_file.h"

namespace quillkit {

class ScriptTarget {
 public:
  // The file at `path`, which is created, or emptied if it exists. Null is no file. `path` must
  // outlive the object.
  ScriptTarget(const char* path) : path_(path) {}

  // A file that is open for writing. Its name plays no part any more.
  ScriptTarget(OpenFile file) : file_(std::move(file)) {}

  // Opens the file. Called once.
  OpenFile Open() { return path_ != nullptr ? OpenFile::ToWrite(path_) : std::move(file_); }

 private:
  const char* path_ = nullptr;
  OpenFile file_;
};

}  // namespace quillkit

#endif  // QUILLKIT_IMPORT_SCRIPT_TARGET_H_
