// The journal of calls as a file, for whoever stands outside the process.

#ifndef QUILLKIT_SIMULATOR_JOURNAL_FILE_H_
#define QUILLKIT_SIMULATOR_JOURNAL_FILE_H_

#include <fstream>
#include <string>
#include <string_view>

#include "simulator/protocol.h"

namespace quillbox {

class JournalFile {
 public:
  // Goes on at the end of the file, so that processes that run one after the other share it. A
  // failure is told on standard error. Called once.
  void Open(const std::string& path);

  bool IsOpen() const { return file.is_open(); }

  // Adds the line "TEXT = STATUS", with what is no printable ASCII escaped, and writes it out: a
  // process that then crashes has told its last call. Where that fails, standard error tells it,
  // once.
  void Add(std::string_view text, Status status);

 private:
  std::ofstream file;
};

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_JOURNAL_FILE_H_
