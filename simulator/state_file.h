// The file that keeps the books of an appliance between processes.

#ifndef QUILLKIT_SIMULATOR_STATE_FILE_H_
#define QUILLKIT_SIMULATOR_STATE_FILE_H_

#include <string>

#include "simulator/state_text.h"

namespace quillbox {

class StateFile {
 public:
  // Fills the contents from the file at `path`. If there is none, creates it from the contents,
  // readable only by its owner because it contains passwords. If the file cannot be read or is
  // invalid, reports that on standard error; then the contents stay unchanged and the file is never
  // written. Called once.
  void Open(const std::string& path, Contents& contents);

  // Whether Save can write a file.
  bool IsOpen() const { return !keptPath.empty(); }

  // Writes the contents to a new file, which replaces the old one atomically and gets its
  // permissions: a reader finds the old state or the new one. On failure, keeps the old file and
  // reports the failure on standard error. REQUIRES: IsOpen().
  void Save(const Contents& contents) const;

 private:
  std::string keptPath;
};

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_STATE_FILE_H_
