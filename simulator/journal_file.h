// The journal of calls as a file, for readers outside the process.

#ifndef QUILLKIT_SIMULATOR_JOURNAL_FILE_H_
#define QUILLKIT_SIMULATOR_JOURNAL_FILE_H_

#include <fstream>
#include <string>
#include <string_view>

#include "simulator/protocol.h"

namespace quillbox {

class JournalFile {
 public:
  // Appends to the file, so that consecutive processes can share it. Returns an empty text, or the
  // description of a failure. Called once.
  std::string Open(const std::string& path);

  bool IsOpen() const { return file.is_open(); }

  // Adds the line "TEXT = STATUS", escaping bytes that are not printable ASCII, and flushes it: the
  // file of a process that crashes contains its last call. The first failure is reported on
  // standard error.
  void Add(std::string_view text, Status status);

 private:
  std::ofstream file;
};

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_JOURNAL_FILE_H_
