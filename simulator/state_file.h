// The file in which an appliance keeps its books from one process to the next.

#ifndef QUILLKIT_SIMULATOR_STATE_FILE_H_
#define QUILLKIT_SIMULATOR_STATE_FILE_H_

#include <string>

#include "simulator/state_text.h"

namespace quillbox {

class StateFile {
 public:
  // Fills the contents from the file at `path`, or makes the file from them when there is none, for
  // its owner alone: it holds passwords. A file that cannot be read, or not understood to its end,
  // is told on standard error: the contents then stay as they are, nothing is kept, and the file is
  // never written. Called once.
  void Open(const std::string& path, Contents& contents);

  // Whether there is a file that Save writes.
  bool IsOpen() const { return !keptPath.empty(); }

  // Writes the contents to a file of its own beside it, which then takes its place and its rights
  // at once: whoever reads it finds the old state or the new one. A failure is told on standard
  // error, and leaves the old one. REQUIRES: IsOpen().
  void Save(const Contents& contents) const;

 private:
  std::string keptPath;
};

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_STATE_FILE_H_
