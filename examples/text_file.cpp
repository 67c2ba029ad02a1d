#include "examples/text_file.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <utility>

#include "examples/displayed_text.h"
#include "examples/failures.h"

namespace quillctl {
namespace {

// Whether a file of its own, with the rights of what is there, took the place of `path`.
bool Replace(const std::filesystem::path& path, const std::string& text) {
  std::error_code failure;
  const std::filesystem::file_status before = std::filesystem::status(path, failure);
  std::filesystem::path fresh = path;
  fresh += ".new";
  if (exists(std::filesystem::symlink_status(fresh, failure))) {
    throw UsageError("a file is written beside its place first, and " + Quoted(fresh.string()) +
                     " is there already");
  }
  if (WriteBytes(fresh.string(), text)) {
    failure.clear();
    if (exists(before)) std::filesystem::permissions(fresh, before.permissions(), failure);
    if (!failure) std::filesystem::rename(fresh, path, failure);
    if (!failure) return true;
  }
  std::filesystem::remove(fresh, failure);
  return false;
}

}  // namespace

std::optional<std::string> ReadBytes(const std::string& path, std::size_t most) {
  std::ifstream file(path, std::ios::binary);
  std::string bytes;
  std::array<char, 65536> block = {};
  while (bytes.size() <= most && !file.read(block.data(), block.size()).bad() &&
         file.gcount() > 0) {
    bytes.append(block.data(), static_cast<std::size_t>(file.gcount()));
  }
  if (!file.is_open() || file.bad()) return std::nullopt;
  return bytes;
}

bool WriteBytes(const std::string& path, std::string_view bytes) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file << bytes;
  file.close();
  return bool(file);
}

std::string ReadTextFile(const std::string& path, std::size_t most) {
  std::optional<std::string> text = ReadBytes(path, most);
  if (!text) throw UsageError("cannot read " + Quoted(path));
  if (text->size() > most) throw UsageError(Quoted(path) + " is too large");
  return std::move(*text);
}

void WriteTextFile(const std::string& path, const std::string& text) {
  std::error_code failure;
  const bool isThere = std::filesystem::exists(path, failure);
  if (isThere && !std::filesystem::is_regular_file(path, failure)) {
    if (!WriteBytes(path, text)) throw Refusal("cannot write " + Quoted(path));
    return;
  }
  if (!isThere && std::filesystem::is_symlink(std::filesystem::symlink_status(path, failure))) {
    throw UsageError(Quoted(path) + " is a link that leads nowhere");
  }
  // A link stays, and what it leads to changes.
  const std::filesystem::path place = std::filesystem::weakly_canonical(path, failure);
  if (failure || !Replace(place, text)) {
    throw Refusal("cannot write " + Quoted(path) + "; what was there is as it was");
  }
}

}  // namespace quillctl
