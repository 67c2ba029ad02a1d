// The common part of the converters: reads a text file line by line, writes a script, and reports
// errors of both. Memory use does not depend on the size of the file.

#ifndef QUILLKIT_IMPORT_CONVERSION_H_
#define QUILLKIT_IMPORT_CONVERSION_H_

#include <cstdint>
#include <span>
#include <string_view>

#include "bridge/status.h"
#include "import/conversion_job.h"
#include "import/line_reader.h"
#include "import/script.h"

namespace quillkit {

// The results of a converter.
inline constexpr Status kConverted = kNoError;
// The script cannot be created or completely written, as on a full disk.
inline constexpr Status kScriptFailed = kRefused;
// The source cannot be opened or read, or is a folder.
inline constexpr Status kSourceFailed = kUnusableInput;

class Conversion {
 public:
  // Opens the source and then the script of the job. Returns kConverted, or the first failure; if
  // the source fails, the script is untouched. Called once.
  std::int32_t Open(ConversionJob* job);

  // Stores the next line of the source, as LineReader::Next does. Returns false at the end, and
  // after the script could not be written.
  bool NextLine(TextSpan* line) { return writer.IsGood() && source.Next(line); }

  ScriptWriter& script() { return writer; }

  // Writes the entry that the latest line completes, and reports the line.
  // REQUIRES: as for WriteEntry (script.h).
  void AddEntry(const ScriptBook& book, std::span<const std::string_view> values) {
    WriteEntry(writer, book, isAdmin, values);
    Report(values.first(book.fieldCount));
  }

  // Reports the latest line to the observer of the job, if there is one. Call it for a line that
  // completes no entry; AddEntry reports the others.
  void Report(std::span<const std::string_view> values = {}) {
    if (observer != nullptr) observer->OnLine(source.LineNumber(), values);
  }

  // Completes and closes the script. Returns kConverted only if the script is complete.
  std::int32_t Close();

 private:
  LineReader source;
  ScriptWriter writer;
  RowObserver* observer = nullptr;
  bool isAdmin = false;
};

}  // namespace quillkit

#endif  // QUILLKIT_IMPORT_CONVERSION_H_
