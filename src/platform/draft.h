// Files that are replaced whole: a draft is written beside the file and then moved to its place.
//
// A draft has the name ".quillkit-new-" and a number, in the folder of the file. Its writer holds a
// lock on it: on POSIX by flock(), on Windows by having it open. A draft without a lock was left by
// a process that was killed. The next replacement of any file in the folder removes it.

#ifndef QUILLKIT_PLATFORM_DRAFT_H_
#define QUILLKIT_PLATFORM_DRAFT_H_

#include <string>
#include <string_view>

namespace quillkit {

inline constexpr std::string_view kDraftPrefix = ".quillkit-new-";

inline std::string DraftName(unsigned number) {
  return std::string(kDraftPrefix) + std::to_string(number);
}

// Whether a file of this name is a draft: no other program makes such a name.
inline bool IsDraftName(std::string_view name) {
  if (!name.starts_with(kDraftPrefix)) return false;
  name.remove_prefix(kDraftPrefix.size());
  return !name.empty() && name.front() != '0' && name.find_first_not_of("0123456789") == name.npos;
}

// Who can read a file that did not exist before. kUsual: the users that the file mode mask of the
// process allows. kOwner: only the owner. On Windows, the folder determines this.
enum class Readers { kUsual, kOwner };

// Replaces the file at `path` with these bytes, or creates it. The bytes are on the disk before the
// file gets its name. The new file has the permissions of the old one. Returns false and changes
// nothing on failure. REQUIRES: `path` is not a link.
bool ReplaceFileAt(const std::string& path, std::string_view bytes, Readers readers);

}  // namespace quillkit

#endif  // QUILLKIT_PLATFORM_DRAFT_H_
