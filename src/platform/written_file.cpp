#include "platform/written_file.h"

#include <filesystem>
#include <system_error>

#include "platform/files.h"
#include "platform/open_file.h"

namespace quillkit {
namespace {

namespace fs = std::filesystem;

// Whether the file is written, has the rights and the name.
bool MoveInto(const fs::path& place, const std::string& fresh, std::string_view bytes) {
  std::error_code failure;
  const fs::file_status before = fs::status(place, failure);
  failure.clear();
  const bool isThere = fs::exists(before);
  // Nobody reads in it what was not to be read in the old one.
  if (isThere) fs::permissions(fresh, before.permissions() | fs::perms::owner_write, failure);
  if (failure || !WriteFileInPlace(fresh, bytes)) return false;
  if (isThere) fs::permissions(fresh, before.permissions(), failure);
  if (!failure) fs::rename(fresh, place, failure);
  return !failure;
}

}  // namespace

bool WriteFileInPlace(const std::string& path, std::string_view bytes) {
  OpenFile file = OpenFile::ToWrite(path.c_str());
  return file.Write(bytes) && file.Close();
}

bool WriteFileWhole(const std::string& path, std::string_view bytes) {
  std::error_code failure;
  const fs::path place = fs::weakly_canonical(path, failure);
  if (failure || fs::is_symlink(fs::symlink_status(place, failure))) return false;
  const std::string fresh = CreateFileBeside(place.string());
  if (fresh.empty()) return false;
  const bool isReplaced = MoveInto(place, fresh, bytes);
  if (!isReplaced) DeleteFileAt(fresh);
  return isReplaced;
}

}  // namespace quillkit
