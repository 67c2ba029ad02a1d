// Writes an import script: text in pieces, through a buffer of its own, to a text file. A piece is
// composed in the buffer itself.
//
// Lines end in '\n' here and in what the system's text files end them in on disk. The first write
// that fails, as on a full disk, drops all later text; Close() reports it, so that a script that
// was cut short is never taken for a whole one.
//
// A script of accounts has their passwords: the buffer is wiped at the end.

#ifndef QUILLKIT_IMPORT_SCRIPT_WRITER_H_
#define QUILLKIT_IMPORT_SCRIPT_WRITER_H_

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string_view>

#include "import/script_target.h"
#include "platform/open_file.h"

namespace quillkit {

class ScriptWriter {
 public:
  static constexpr std::size_t kBufferSize = std::size_t{64} * 1024;

  ScriptWriter();
  ScriptWriter(const ScriptWriter&) = delete;
  ScriptWriter& operator=(const ScriptWriter&) = delete;
  ~ScriptWriter();

  // Opens the file. Returns false on failure. Called once.
  bool Open(ScriptTarget target);

  // Room for `size` characters of the script's next text, good until the next call of anything;
  // Take then adds to the script what was written there in front of `end`.
  // REQUIRES: the file is open, and `size` is at most kBufferSize.
  char* Room(std::size_t size) {
    if (size > kBufferSize - size_) WriteBuffer();
    return buffer_.get() + size_;
  }
  void Take(const char* end) { size_ = static_cast<std::size_t>(end - buffer_.get()); }

  // REQUIRES: as Room, for the text's size.
  void Append(std::string_view text) {
    Take(std::copy(text.begin(), text.end(), Room(text.size())));
  }

  // Whether everything that left the buffer so far was written.
  bool IsGood() const { return !file_.HasFailed(); }

  // Writes what is left and closes the file. Whether the whole script was written.
  // REQUIRES: the file is open.
  bool Close();

 private:
  void WriteBuffer();

  std::unique_ptr<char[]> buffer_;
  std::size_t size_ = 0;  // bytes in the buffer
  OpenFile file_;
};

}  // namespace quillkit

#endif  // QUILLKIT_IMPORT_SCRIPT_WRITER_H_
