// The lines of a text file, of limited length. They end with LF or CR LF.

#ifndef QUILLKIT_SIMULATOR_TEXT_LINES_H_
#define QUILLKIT_SIMULATOR_TEXT_LINES_H_

#include <array>
#include <fstream>
#include <iterator>
#include <optional>
#include <string_view>

namespace quillbox {

class TextLines {
 public:
  explicit TextLines(const char* path) : file(path, std::ios::binary) {}

  // Whether the file was opened, and all reads so far succeeded.
  bool IsReadable() const { return file.is_open() && !file.bad(); }

  // Returns the next line without its line end, or nothing at the end of the file. Valid until the
  // next call. A line of more than 4095 characters ends the reading: IsCut() is then true.
  std::optional<std::string_view> Next() {
    if (!file.getline(buffer.data(), std::ssize(buffer))) {
      isCut = !file.eof() && !file.bad();
      return std::nullopt;
    }
    auto length = static_cast<std::size_t>(file.gcount());
    if (!file.eof()) --length;  // the LF counts as read
    std::string_view line(buffer.data(), length);
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
  }

  bool IsCut() const { return isCut; }

 private:
  std::ifstream file;
  std::array<char, 4096> buffer{};
  bool isCut = false;
};

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_TEXT_LINES_H_
