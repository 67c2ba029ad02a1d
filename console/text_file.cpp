#include "console/text_file.h"

#include <array>
#include <cerrno>
#include <filesystem>
#include <iostream>
#include <system_error>

#include "console/displayed_text.h"
#include "console/failure.h"
#include "console/system/deferred_termination.h"
#include "console/system/terminal.h"
#include "platform/open_file.h"
#include "platform/written_file.h"

namespace console {
namespace {

UsageError TooLarge(const std::string& name, std::size_t limit) {
  return UsageError("cannot read " + name + ": it is larger than " + std::to_string(limit >> 20) +
                    " MiB");
}

std::string ReadStdin(std::size_t limit) {
  ReadStdinAsBinary();
  std::string bytes;
  std::array<char, 65536> block = {};
  while (std::cin && bytes.size() <= limit) {
    std::cin.read(block.data(), block.size());
    bytes.append(block.data(), static_cast<std::size_t>(std::cin.gcount()));
  }
  if (bytes.size() <= limit) return bytes;
  throw TooLarge("standard input", limit);
}

}  // namespace

std::string ReadFault(const std::string& path, int error) {
  std::error_code failure;
  if (std::filesystem::is_directory(path, failure)) return "it is a folder";
  return std::generic_category().message(error);
}

std::string ReadTextFile(const std::string& path, std::size_t limit) {
  if (path == "-") return ReadStdin(limit);
  quillkit::OpenFile file = quillkit::OpenFile::ToRead(path.c_str());
  std::string bytes;
  std::array<char, 65536> block = {};
  while (file.IsOpen() && bytes.size() <= limit) {
    const std::size_t size = file.Read(block.data(), block.size());
    if (size == 0) break;
    bytes.append(block.data(), size);
  }
  if (const int error = errno; !file.IsOpen() || file.HasFailed()) {
    throw UsageError("cannot read " + Quoted(path) + ": " + ReadFault(path, error));
  }
  if (bytes.size() <= limit) return bytes;
  throw TooLarge(Quoted(path), limit);
}

void WriteTextFile(const std::string& path, const std::string& text, quillkit::Readers readers) {
  std::error_code failure;
  const auto found = std::filesystem::status(path, failure);
  if (std::filesystem::exists(found) && !std::filesystem::is_regular_file(found)) {
    if (!quillkit::WriteFileInPlace(path, text)) throw Refusal("cannot write " + Quoted(path));
    return;
  }
  const DeferredTermination termination("writing the file");  // leaves no draft behind
  if (!quillkit::WriteFileWhole(path, text, readers)) {
    throw Refusal("cannot write " + Quoted(path) + "; an existing file was not changed");
  }
}

bool IsStandardOutput(const std::string& path) {
  std::error_code failure;
  return path.empty() || path == "-" || std::filesystem::equivalent(path, "/dev/stdout", failure);
}

bool WriteOutput(const std::string& path, const std::string& text, quillkit::Readers readers) {
  if (!IsStandardOutput(path)) {
    WriteTextFile(path, text, readers);
    return true;
  }
  std::cout << text;
  return false;
}

std::string QuotedFileName(const std::string& path) {
  if (path == "-") return "standard input";
  const std::string name = std::filesystem::path(path).filename().string();
  return Quoted(name.empty() ? path : name);
}

bool FileLines::Next() {
  if (rest.empty()) return false;
  const std::size_t newline = rest.find('\n');
  bytes = rest.substr(0, newline == rest.npos ? newline : newline + 1);
  rest.remove_prefix(bytes.size());
  return true;
}

std::string_view FileLines::Text() const {
  std::string_view text = bytes;
  if (!text.ends_with('\n')) return text;
  text.remove_suffix(text.ends_with("\r\n") ? 2 : 1);
  return text;
}

}  // namespace console
