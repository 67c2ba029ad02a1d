// Turns a file of any format into a script: the one place that knows which converter takes which.

#ifndef QUILLKIT_IMPORT_CONVERT_FILE_H_
#define QUILLKIT_IMPORT_CONVERT_FILE_H_

#include <cstdint>

#include "import/import_options.h"
#include "import/script_target.h"

namespace quillkit {

// What the converter of the options' format gives for these files and options, or -11, with nothing
// touched, for a format that has none. No window takes part, so no messages are pumped. `isAdmin`
// and `userName` are those of ConvertDelimitedText.
std::int32_t ConvertFile(const char* sourcePath, ScriptTarget script, const ImportOptions& options,
                         std::int32_t isAdmin, const char* userName);

}  // namespace quillkit

#endif  // QUILLKIT_IMPORT_CONVERT_FILE_H_
