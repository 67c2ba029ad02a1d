#include "simulator/journal_file.h"

#include "simulator/escaped_text.h"
#include "simulator/warning.h"

namespace quillbox {

void JournalFile::Open(const std::string& path) {
  file.open(path, std::ios::binary | std::ios::app);
  if (!file.is_open()) Warn(kJournalVariable, "the file cannot be opened");
}

void JournalFile::Add(std::string_view text, Status status) {
  if (!file) return;
  file << Escaped(text) << " = " << status << std::endl;
  if (!file) Warn(kJournalVariable, "the file cannot be written; the journal ends here");
}

}  // namespace quillbox
