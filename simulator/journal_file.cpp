#include "simulator/journal_file.h"

#include "simulator/complaint.h"
#include "simulator/escaped_text.h"

namespace quillbox {

void JournalFile::Open(const std::string& path) {
  file_.open(path, std::ios::binary | std::ios::app);
  if (!file_.is_open()) Complain(kJournalVariable, "the file cannot be opened");
}

void JournalFile::Add(std::string_view text, Status status) {
  if (!file_) return;
  file_ << Escaped(text) << " = " << status << std::endl;
  if (!file_) Complain(kJournalVariable, "the file cannot be written; the journal ends here");
}

}  // namespace quillbox
