#include "simulator/journal_file.h"

#include "simulator/escaped_text.h"
#include "simulator/warning.h"

namespace quillbox {

std::string JournalFile::Open(const std::string& path) {
  file.open(path, std::ios::binary | std::ios::app);
  return file.is_open() ? "" : "cannot open the file";
}

void JournalFile::Add(std::string_view text, Status status) {
  if (!file) return;
  file << Escaped(text) << " = " << status << std::endl;
  if (!file) Warn(kJournalVariable, "cannot write the file; the journal ends here");
}

}  // namespace quillbox
