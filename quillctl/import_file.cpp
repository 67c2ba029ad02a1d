#include "quillctl/import_file.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <iostream>
#include <system_error>

#include "console/system/terminal.h"
#include "console/text_file.h"
#include "quillctl/failures.h"

namespace quillctl {

ImportFile::ImportFile(const std::string& newPath, bool needsPath) : path(newPath) {
  if (path == "-") {
    console::ReadStdinAsBinary();
    CopyFrom(std::cin, needsPath);
    return;
  }
  errno = 0;
  stream.open(path, std::ios::binary);
  // A folder can be opened, but not read.
  if (!stream.is_open() || (stream.peek(), stream.bad())) {
    throw UsageError("cannot read " + Name() + ": " + console::ReadFault(path, errno));
  }
  std::error_code failure;
  if (std::filesystem::is_regular_file(path, failure)) return;
  std::ifstream device = std::move(stream);
  CopyFrom(device, needsPath);
}

void ImportFile::CopyFrom(std::istream& from, bool needsPath) {
  copy.emplace();
  quillkit::OpenFile file = copy->ReleaseFile();
  stream = std::ifstream(copy->path(), std::ios::binary);
  if (!needsPath) quillkit::DeleteFileAt(copy->path());
  std::array<char, 65536> block = {};
  while (from.read(block.data(), block.size()), from.gcount() > 0) {
    console::KeepSessionAlive();
    if (!file.Write({block.data(), static_cast<std::size_t>(from.gcount())})) break;
  }
  if (from.bad()) throw UsageError("cannot read " + Name());
  if (!file.Close() || !stream.is_open()) throw Refusal(console::kNoTemporaryFile);
}

std::istream& ImportFile::Rewind() {
  stream.clear();
  stream.seekg(0);
  return stream;
}

void ImportFile::RequireGood() const {
  if (stream.bad()) throw Refusal("cannot read " + Name() + " completely");
}

std::string ImportFile::Bytes(std::uint64_t begin, std::uint64_t end) {
  std::string bytes(static_cast<std::size_t>(end - begin), '\0');
  Rewind();
  stream.seekg(static_cast<std::streamoff>(begin));
  stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  bytes.resize(static_cast<std::size_t>(stream.gcount()));
  return bytes;
}

void ImportFile::Copy(std::uint64_t begin, std::uint64_t end, quillkit::OpenFile& to) {
  constexpr std::uint64_t kBlock = 65536;
  for (; begin < end; begin += kBlock) to.Write(Bytes(begin, std::min(end, begin + kBlock)));
}

std::string ImportFile::Name() const {
  return console::QuotedFileName(path);
}

}  // namespace quillctl
