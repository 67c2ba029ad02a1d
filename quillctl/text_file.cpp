#include "quillctl/text_file.h"

#include <array>
#include <filesystem>
#include <utility>

#include "platform/open_file.h"
#include "platform/written_file.h"
#include "quillctl/displayed_text.h"
#include "quillctl/failures.h"

namespace quillctl {

std::optional<std::string> ReadBytes(const std::string& path, std::size_t most) {
  quillkit::OpenFile file = quillkit::OpenFile::ToRead(path.c_str());
  if (!file.IsOpen()) return std::nullopt;
  std::string bytes;
  std::array<char, 65536> block = {};
  while (bytes.size() <= most) {
    const std::size_t size = file.Read(block.data(), block.size());
    if (size == 0) break;
    bytes.append(block.data(), size);
  }
  if (file.HasFailed()) return std::nullopt;
  return bytes;
}

std::string ReadTextFile(const std::string& path, std::size_t most) {
  std::optional<std::string> text = ReadBytes(path, most);
  if (!text) throw UsageError("cannot read " + Quoted(path));
  if (text->size() > most) throw UsageError(Quoted(path) + " is too large");
  return std::move(*text);
}

void WriteTextFile(const std::string& path, const std::string& text) {
  std::error_code failure;
  const auto found = std::filesystem::status(path, failure);
  if (std::filesystem::exists(found) && !std::filesystem::is_regular_file(found)) {
    if (!quillkit::WriteFileInPlace(path, text)) throw Refusal("cannot write " + Quoted(path));
  } else if (!quillkit::WriteFileWhole(path, text)) {
    throw Refusal("cannot write " + Quoted(path) + "; what was there is as it was");
  }
}

}  // namespace quillctl
