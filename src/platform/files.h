// Questions about files that the standard library has no portable answer to.

#ifndef QUILLKIT_PLATFORM_FILES_H_
#define QUILLKIT_PLATFORM_FILES_H_

#include <string>

namespace quillkit {

// Whether anything has this path. "*" and "?" in the last component match any run of characters and
// any one character; every other character stands for itself. A folder counts, by its name alone: a
// path that ends in a separator has none. False for null.
bool MatchesAnyFile(const char* path);

// Creates an empty file with a unique name that begins with `prefix` (three letters) in the folder
// for temporary files, and gives its path; an empty text when that cannot be done. On POSIX the
// folder is the first of $TMPDIR, $TMP, $TEMP and $TEMPDIR that is not empty, else /tmp.
std::string CreateTemporaryFile(const char* prefix);

// Creates an empty file beside `path`, with the rights that new files have, under a name that
// begins with that of `path` and that nothing else has; an empty text when that cannot be done.
std::string CreateFileBeside(const std::string& path);

// Deletes a file. A failure is ignored.
void DeleteFileAt(const std::string& path);

}  // namespace quillkit

#endif  // QUILLKIT_PLATFORM_FILES_H_
