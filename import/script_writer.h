// Writes an import script: text in pieces, through a buffer of its own, to a text file.
//
// Lines end in '\n' here and in what the system's text files end them in on disk. The first write
// that fails, as on a full disk, drops all later text; Close() reports it, so that a script that
// was cut short is never taken for a whole one.

#ifndef QUILLKIT_IMPORT_SCRIPT_WRITER_H_
#define QUILLKIT_IMPORT_SCRIPT_WRITER_H_

#include <cstddef>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string_view>

namespace quillkit {

class ScriptWriter {
 public:
  ScriptWriter();
  ScriptWriter(const ScriptWriter&) = delete;
  ScriptWriter& operator=(const ScriptWriter&) = delete;
  ~ScriptWriter();

  // Creates the file, or empties the one that is there. False when that fails or `path` is null.
  // Called once.
  bool Open(const char* path);

  // REQUIRES: the file is open.
  void Append(std::string_view text) {
    if (text.size() > kBufferSize - size_) {
      text.remove_prefix(FillUp(text));
    } else if (text.empty()) {
      return;
    }
    std::memcpy(buffer_.get() + size_, text.data(), text.size());
    size_ += text.size();
  }

  // Whether everything that left the buffer so far was written.
  bool IsGood() const { return good_; }

  // Writes what is left and closes the file. Whether the whole script was written.
  // REQUIRES: the file is open.
  bool Close();

 private:
  static constexpr std::size_t kBufferSize = std::size_t{64} * 1024;

  // Writes whole buffers until the rest of `text` fits one, and gives how much of it was taken.
  std::size_t FillUp(std::string_view text);
  void WriteBuffer();

  std::unique_ptr<char[]> buffer_;
  std::size_t size_ = 0;  // bytes in the buffer
  std::FILE* file_ = nullptr;
  bool good_ = true;
};

}  // namespace quillkit

#endif  // QUILLKIT_IMPORT_SCRIPT_WRITER_H_
