#include "platform/written_file.h"

#include <filesystem>
#include <system_error>

#include "platform/open_file.h"

namespace quillkit {

bool WriteFileInPlace(const std::string& path, std::string_view bytes) {
  OpenFile file = OpenFile::ToWrite(path.c_str());
  return file.Write(bytes) && file.Close();
}

bool WriteFileWhole(const std::string& path, std::string_view bytes, Readers readers) {
  namespace fs = std::filesystem;
  std::error_code failure;
  const fs::path place = fs::weakly_canonical(path, failure);
  if (failure || fs::is_symlink(fs::symlink_status(place, failure))) return false;
  return ReplaceFileAt(place.string(), bytes, readers);
}

}  // namespace quillkit
