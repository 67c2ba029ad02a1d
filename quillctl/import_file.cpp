#include "quillctl/import_file.h"

#include <filesystem>
#include <optional>
#include <utility>

#include "quillctl/displayed_text.h"
#include "quillctl/failures.h"
#include "quillctl/text_file.h"

namespace quillctl {
namespace {

constexpr std::size_t kLargest = std::size_t{64} << 20;

}  // namespace

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
  if (rest_.empty()) return false;
  const std::size_t newline = rest_.find('\n');
  bytes_ = rest_.substr(0, newline == rest_.npos ? newline : newline + 1);
  rest_.remove_prefix(bytes_.size());
  ++number_;
  return true;
}

bool FileLines::IsBlank() const {
  return bytes_.find_first_not_of(" \t\n\v\f\r") == bytes_.npos;
}

std::string_view FileLines::Text() const {
  std::string_view text = bytes_;
  if (!text.ends_with('\n')) return text;
  text.remove_suffix(text.ends_with("\r\n") ? 2 : 1);
  return text;
}

std::string FileLines::Folded() const {
  std::string folded(Text());
  if (bytes_.ends_with('\n')) folded += '\n';
  return folded;
}

}  // namespace quillctl
