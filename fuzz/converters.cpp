// Files that are converted into import scripts. The input:
//
//   format       0 delimited, 1 directory, 2 mail server
//   flags        the sum of 1 for the administrator, 2 to clear first, 4 to skip the header
//   target book  0 to 5
//   columns      five, and the number of those that count
//   newline
//   the file

#include <string>

#include "fuzz/input.h"
#include "import/conversion.h"
#include "import/convert_file.h"
#include "tests/import/option_record.h"
#include "tests/support/scratch_folder.h"

namespace quillkit {
namespace {

std::string Convert(const std::string& file, const OptionRecord& options, bool isAdmin) {
  static const ScratchFolder folder;
  static const std::string script = folder.PathOf("script");
  const std::string source = folder.Write("source", file);
  Require(ConvertFile({.sourcePath = source.c_str(), .script = script.c_str(), .isAdmin = isAdmin},
                      *options) == kConverted,
          "every file can be converted");
  return ReadBytes(script);
}

std::string WithCarriageReturns(const std::string& file) {
  std::string text;
  for (const char c : file) text += c == '\n' ? "\r\n" : std::string(1, c);
  return text;
}

void CheckConversion(const std::string& file, const OptionRecord& options, bool isAdmin) {
  const ImportOptions& record = *options;
  const std::string script = Convert(file, options, isAdmin);
  Require(file.find('\r') != file.npos ||
              Convert(WithCarriageReturns(file), options, isAdmin) == script,
          "a carriage return before a newline changes nothing");

  const std::string start = file.substr(0, file.rfind('\n', file.size() / 2) + 1);
  const std::string startScript = Convert(start, options, isAdmin);
  Require(script.starts_with(startScript), "later lines do not change the entries before them");
  if (record.format != ImportFormatDirectory && record.clearFirst == 0 && record.skipHeader == 0) {
    Require(script == startScript + Convert(file.substr(start.size()), options, isAdmin),
            "each row is converted by itself");
  }
}

}  // namespace
}  // namespace quillkit

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quillkit;
  Input input(data, size);
  const std::uint32_t format = kConvertedFormats[input.TakeBelow(std::size(kConvertedFormats))];
  const std::size_t flags = input.TakeBelow(8);
  const auto targetBook = static_cast<std::int32_t>(input.TakeBelow(6));
  OptionRecord options(format, targetBook, input.TakeColumns());
  if ((flags & 2) != 0) options.ClearFirst();
  if ((flags & 4) != 0) options.SkipHeader();
  input.TakeChar();
  CheckConversion(std::string(input.Rest()), options, (flags & 1) != 0);
  return 0;
}
