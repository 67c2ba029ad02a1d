// File operations that the standard library does not provide portably.

#ifndef QUILLKIT_PLATFORM_FILES_H_
#define QUILLKIT_PLATFORM_FILES_H_

#include <string>

#include "platform/open_file.h"

namespace quillkit {

// Returns whether a file or folder has this path. In the last component, "*" matches any sequence
// of characters and "?" any one character. Returns false for null and for a path that ends in a
// separator.
bool MatchesAnyFile(const char* path);

// A file that this process created.
struct CreatedFile {
  std::string path;  // empty if it could not be created
  OpenFile file;     // open for writing
};

// Creates an empty file with a unique name that begins with `prefix` (three letters) in the folder
// for temporary files. On POSIX the folder is the first of $TMPDIR, $TMP, $TEMP and $TEMPDIR that
// is not empty, else /tmp; only the user can access the file. If other users can rename files in
// the folder, the path may lead to another file at any time: write to the open file only.
CreatedFile CreateTemporaryFile(const char* prefix);

// Returns a path in UTF-8 in the encoding that the functions here expect: unchanged on POSIX; on
// Windows in the code page of the process, if need be as the short path of an existing file.
// Returns an empty text if there is no such path.
std::string SystemPath(const std::string& utf8);

// Deletes a file. A failure is ignored.
void DeleteFileAt(const std::string& path);

}  // namespace quillkit

#endif  // QUILLKIT_PLATFORM_FILES_H_
