// The journal of calls as a file, for readers outside the process.

#ifndef QUILLKIT_SIMULATOR_JOURNAL_FILE_H_
#define QUILLKIT_SIMULATOR_JOURNAL_FILE_H_

#include <fstream>
#include <optional>
#include <string>
#include <string_view>

#include "simulator/protocol.h"

namespace quillbox {

// The form of a line.
enum class JournalForm {
  kPlain,  // TEXT = STATUS
  kTimed,  // TIME TEXT = STATUS, and "; FAULT" for a call that a fault changed
  kJson,   // an object with the members time, entryPoint, arguments, status and, if any, fault
};

// Returns the form of the name "plain", "text" or "json", or nothing.
std::optional<JournalForm> JournalFormOf(std::string_view name);

struct JournalLine {
  std::string_view time;
  std::string_view call;  // the entry point and its arguments
  Status status = kNoError;
  std::string_view fault;
};

class JournalFile {
 public:
  // Appends to the file, so that consecutive processes can share it. Returns an empty text, or the
  // description of a failure. Called once.
  std::string Open(const std::string& path, JournalForm newForm = JournalForm::kPlain);

  bool IsOpen() const { return file.is_open(); }

  // Adds a line, escaping bytes that are not printable ASCII, and flushes it: the file of a process
  // that crashes contains its last call. The first failure is reported on standard error.
  void Add(const JournalLine& line);

 private:
  std::ofstream file;
  std::string keptPath;
  JournalForm form = JournalForm::kPlain;
};

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_JOURNAL_FILE_H_
