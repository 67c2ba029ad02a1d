// What a converter reads, and where it writes its script.

#ifndef QUILLKIT_IMPORT_CONVERSION_JOB_H_
#define QUILLKIT_IMPORT_CONVERSION_JOB_H_

#include <utility>

#include "import/row_observer.h"
#include "platform/message_pump.h"
#include "platform/open_file.h"

namespace quillkit {

class ScriptTarget {
 public:
  ScriptTarget() = default;

  // The file at `newPath`, which is created, or emptied if it exists. Null: no file; Open() fails.
  // `newPath` must outlive the object.
  ScriptTarget(const char* newPath) : path(newPath) {}

  // A file that is open for writing. Its name is not used.
  ScriptTarget(OpenFile newFile) : file(std::move(newFile)) {}

  // Opens the file. Called once.
  OpenFile Open() { return path != nullptr ? OpenFile::ToWrite(path) : std::move(file); }

 private:
  const char* path = nullptr;
  OpenFile file;
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
  RowObserver* observer = nullptr;  // not owned; may be null
};

}  // namespace quillkit

#endif  // QUILLKIT_IMPORT_CONVERSION_JOB_H_
