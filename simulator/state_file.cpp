#include "simulator/state_file.h"

#include <filesystem>
#include <fstream>
#include <system_error>
#include <utility>

#include "platform/written_file.h"
#include "simulator/state_text.h"

namespace quillbox {
namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t kSmall = 1U << 20;
constexpr std::uintmax_t kLargest = std::uintmax_t{1} << 30;

std::uintmax_t SizeOf(const std::string& path) {
  std::error_code failure;
  const std::uintmax_t size = fs::file_size(path, failure);
  return failure ? 0 : size;
}

std::string LockPath(const std::string& path) {
  return path + ".lock";
}

// Reads the file from this offset. Returns an empty text, or the description of a failure.
std::string ReadFrom(const std::string& path, std::uintmax_t offset, std::string& text) {
  const std::uintmax_t found = SizeOf(path);
  if (found > kLargest) return "the file is too large";
  text.resize(static_cast<std::size_t>(found > offset ? found - offset : 0));
  std::ifstream file(path, std::ios::binary);
  file.seekg(static_cast<std::streamoff>(offset));
  file.read(text.data(), static_cast<std::streamsize>(text.size()));
  return file ? "" : "cannot read the file";
}

constexpr const char* kCannotWrite = "cannot write the file";
constexpr const char* kCannotLock = "cannot lock the file";

}  // namespace

std::string ReadStateFile(const std::string& path, Contents& contents) {
  std::error_code failure;
  FileLock lock;
  if (fs::exists(LockPath(path), failure)) lock = FileLock(LockPath(path));
  std::string text;
  std::string fault = ReadFrom(path, 0, text);
  lock = FileLock();
  return fault.empty() ? ReadState(text, contents) : fault;
}

std::string StateFile::Open(const std::string& path, Contents& contents) {
  std::error_code failure;
  const fs::file_type found = fs::status(path, failure).type();
  // The process may change its working folder.
  keptPath = fs::absolute(path, failure).string();
  std::string fault;
  if (found != fs::file_type::not_found && found != fs::file_type::regular) {
    fault = "not a file";
  } else {
    lock = FileLock(LockPath(keptPath));
    checkpoints = CountCheckpoints();
    if (!lock.IsHeld()) {
      fault = kCannotLock;
    } else if (fs::exists(keptPath, failure)) {
      fault = Load(contents);
      if (fault.empty() && !std::ofstream(keptPath, std::ios::binary | std::ios::app)) {
        fault = kCannotWrite;
      }
    } else {
      fault = Checkpoint(contents);
    }
    lock = FileLock();
  }
  if (!fault.empty()) keptPath.clear();
  return fault;
}

std::string StateFile::Begin(Contents& contents) {
  if (!IsOpen()) return {};
  lock = FileLock(LockPath(keptPath));
  if (!lock.IsHeld()) return kCannotLock;
  std::string fault = LoadChanges(contents);
  if (!fault.empty()) lock = FileLock();
  return fault;
}

std::string StateFile::End(Contents& contents) {
  if (!IsOpen() || !lock.IsHeld()) return {};
  const StoreChanges changes = contents.store.TakeChanges();
  std::string fault;
  if (changes.isWhole || (!changes.IsEmpty() && !endsInLine) ||
      size > 2 * stateSize + 16 * kSmall) {
    fault = Checkpoint(contents);
  } else if (!changes.IsEmpty()) {
    fault = Append(ChangeText(contents.store, changes));
  }
  mustLoad = mustLoad || !fault.empty();
  lock = FileLock();
  return fault;
}

std::string StateFile::Close(Contents& contents) {
  std::string fault = Begin(contents);
  if (fault.empty() && IsOpen() && size > stateSize && (size < kSmall || size > 2 * stateSize)) {
    contents.store.MarkWhole();
  }
  const std::string failure = End(contents);
  return fault.empty() ? failure : fault;
}

// Replaces the contents by those of the file.
std::string StateFile::Load(Contents& contents) {
  std::string text;
  std::string fault = ReadFrom(keptPath, 0, text);
  if (!fault.empty()) return fault;
  Contents read;
  fault = ReadState(text, read);
  if (!fault.empty()) return fault;
  contents = std::move(read);
  contents.store.TakeChanges();
  mustLoad = false;
  size = CompleteSize(text);
  endsInLine = text[static_cast<std::size_t>(size) - 1] == '\n';
  stateSize = size;
  checkpoints = CountCheckpoints();
  return {};
}

// A whole change of this process will replace the file: it needs no change of another process. A
// file that was deleted is created again.
std::string StateFile::LoadChanges(Contents& contents) {
  StoreChanges own = contents.store.TakeChanges();
  std::error_code failure;
  if (own.isWhole || !fs::exists(keptPath, failure)) {
    contents.store.MarkWhole();
    return {};
  }
  if (mustLoad || CountCheckpoints() != checkpoints || SizeOf(keptPath) < size) {
    return Load(contents);
  }
  if (SizeOf(keptPath) != size) {
    std::string text;
    std::string fault = ReadFrom(keptPath, size, text);
    text.resize(CompleteSize(text));
    if (fault.empty()) fault = ReadChanges(text, contents);
    contents.store.TakeChanges();
    mustLoad = !fault.empty();
    if (mustLoad) return fault;
    if (!text.empty()) endsInLine = text.back() == '\n';
    size += text.size();
  }
  contents.store.AddChanges(std::move(own));
  return {};
}

// Removes what an interrupted process left behind the last complete change.
std::string StateFile::Append(const std::string& change) {
  std::error_code failure;
  if (SizeOf(keptPath) != size) fs::resize_file(keptPath, size, failure);
  std::ofstream file(keptPath, std::ios::binary | std::ios::app);
  file.write(change.data(), static_cast<std::streamsize>(change.size()));
  file.close();
  if (failure || !file) return kCannotWrite;
  size += change.size();
  return {};
}

// Counts the checkpoint first: if the process is killed between, others only read the file again.
std::string StateFile::Checkpoint(Contents& contents) {
  const std::string text = StateText(contents);
  if (!(std::ofstream(LockPath(keptPath), std::ios::binary | std::ios::app) << '.').flush() ||
      !quillkit::WriteFileWhole(keptPath, text, quillkit::Readers::kOwner)) {
    return kCannotWrite;
  }
  contents.store.TakeChanges();
  mustLoad = false;
  size = stateSize = text.size();
  endsInLine = true;
  checkpoints = CountCheckpoints();
  return {};
}

std::uintmax_t StateFile::CountCheckpoints() const {
  return SizeOf(LockPath(keptPath));
}

}  // namespace quillbox
