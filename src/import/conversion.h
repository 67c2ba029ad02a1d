// What every converter has in common: a text file that is read line by line, a script that is
// written as it is read, and what comes of the two. Memory does not grow with the file.

#ifndef QUILLKIT_IMPORT_CONVERSION_H_
#define QUILLKIT_IMPORT_CONVERSION_H_

#include <cstdint>

#include "import/conversion_job.h"
#include "import/line_reader.h"
#include "import/script.h"

namespace quillkit {

// What a converter returns.
inline constexpr std::int32_t kConverted = 0;
// The script cannot be created, or not all of it could be written: a full disk.
inline constexpr std::int32_t kScriptFailed = -1;
// The source cannot be opened, is a folder, or a read of it failed.
inline constexpr std::int32_t kSourceFailed = -2;

class Conversion {
 public:
  // Opens the source and then the script of the job. Returns kConverted, or the first failure; if
  // the source fails, the script is untouched. Called once.
  std::int32_t Open(ConversionJob* job);

  // Stores the source's next line as LineReader does. False when there is none, and as soon as the
  // script can no longer be written.
  bool NextLine(TextSpan* line) { return writer.IsGood() && source.Next(line); }

  ScriptWriter& script() { return writer; }

  // Completes the script and closes it. A script that is not complete is never kConverted.
  std::int32_t Close();

 private:
  LineReader source;
  ScriptWriter writer;
};

}  // namespace quillkit

#endif  // QUILLKIT_IMPORT_CONVERSION_H_
