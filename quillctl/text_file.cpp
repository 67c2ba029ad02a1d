#include "quillctl/text_file.h"

#include <array>
#include <filesystem>
#include <optional>
#include <utility>

#include "platform/open_file.h"
#include "platform/written_file.h"
#include "quillctl/displayed_text.h"
#include "quillctl/failures.h"

namespace quillctl {
namespace {

constexpr std::size_t kLargest = std::size_t{64} << 20;

// The bytes of a file, or none where it cannot be read. Of one that has more than `most` no more is
// read than tells so: what comes is longer than that.
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

}  // namespace

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

std::string ReadImportFile(const std::string& path) {
  std::optional<std::string> bytes = ReadBytes(path, kLargest);
  if (!bytes) throw UsageError(WithoutFolder(path) + " cannot be read");
  if (bytes->size() > kLargest) throw UsageError(WithoutFolder(path) + " is larger than 64 MiB");
  return std::move(*bytes);
}

std::string_view WithoutByteOrderMark(std::string_view text) {
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  return text;
}

std::string WithoutFolder(const std::string& path) {
  const std::string name = std::filesystem::path(path).filename().string();
  return Quoted(name.empty() ? path : name);
}

bool FileLines::Next() {
  if (rest.empty()) return false;
  const std::size_t newline = rest.find('\n');
  bytes = rest.substr(0, newline == rest.npos ? newline : newline + 1);
  rest.remove_prefix(bytes.size());
  ++number;
  return true;
}

bool FileLines::IsBlank() const {
  return bytes.find_first_not_of(" \t\n\v\f\r") == bytes.npos;
}

std::string_view FileLines::Text() const {
  std::string_view text = bytes;
  if (!text.ends_with('\n')) return text;
  text.remove_suffix(text.ends_with("\r\n") ? 2 : 1);
  return text;
}

std::string FileLines::Folded() const {
  std::string folded(Text());
  if (bytes.ends_with('\n')) folded += '\n';
  return folded;
}

}  // namespace quillctl
