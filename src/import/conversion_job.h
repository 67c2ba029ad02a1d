// What a converter reads, and where it writes its script.

#ifndef QUILLKIT_IMPORT_CONVERSION_JOB_H_
#define QUILLKIT_IMPORT_CONVERSION_JOB_H_

#include <utility>

#include "platform/message_pump.h"
#include "platform/open_file.h"

namespace quillkit {

class ScriptTarget {
 public:
  ScriptTarget() = default;

  // The file at `path`, which is created, or emptied if it exists. Null: no file; Open() fails.
  // `path` must outlive the object.
  ScriptTarget(const char* path) : path_(path) {}

  // A file that is open for writing. Its name is not used.
  ScriptTarget(OpenFile file) : file_(std::move(file)) {}

  // Opens the file. Called once.
  OpenFile Open() { return path_ != nullptr ? OpenFile::ToWrite(path_) : std::move(file_); }

 private:
  const char* path_ = nullptr;
  OpenFile file_;
};

// The arguments that all converters have.
struct ConversionJob {
  const char* sourcePath = nullptr;
  ScriptTarget script;
  bool isAdmin = false;     // writes the administrator's lines
  bool clearFirst = false;  // for the administrator: writes a line before them that clears the book
  // Passed to PumpPendingMessages once for each line of the source.
  WindowHandle pumpWindow = nullptr;
  bool restoreCursor = false;
};

}  // namespace quillkit

#endif  // QUILLKIT_IMPORT_CONVERSION_JOB_H_
