// Files that are turned into import scripts, against the model that the tests have of it. The
// input:
//
//   converter    0 delimited, 1 directory, 2 mail server
//   flags        1 the administrator's, 2 clear first, 4 skip the header, added up
//   target book  0 to 5
//   columns      five, of which the next digit tells how many count
//   newline
//   the file

#include <algorithm>
#include <string>
#include <vector>

#include "fuzz/input.h"
#include "import/conversion.h"
#include "tests/import/conversion_model.h"
#include "tests/import/run_converter.h"
#include "tests/support/scratch_folder.h"

namespace quillkit {
namespace {

model::Request TakeRequest(Input& input) {
  model::Request request;
  const std::size_t flags = input.TakeBelow(8);
  request.isAdmin = (flags & 1) != 0;
  request.clearFirst = (flags & 2) != 0;
  request.skipHeader = (flags & 4) != 0;
  request.targetBook = static_cast<std::int32_t>(input.TakeBelow(6));
  request.columnMap.resize(5);
  std::generate(request.columnMap.begin(), request.columnMap.end(),
                [&] { return input.TakeColumn(); });
  request.columnMap.resize(input.TakeBelow(request.columnMap.size() + 1));
  input.TakeChar();
  return request;
}

std::string Expected(Converter converter, const std::string& file, const model::Request& request) {
  if (converter == Converter::kDirectory) return model::DirectoryExport(file, request);
  if (converter == Converter::kMailServer) return model::MailServerExport(file, request);
  return model::DelimitedText(file, request);
}

void CheckConversion(Converter converter, const std::string& file, const model::Request& request) {
  static const ScratchFolder folder;
  static const std::string script = folder.PathOf("script");
  const std::string source = folder.Write("source", file);
  Require(RunConverter(converter, source.c_str(), script.c_str(), request) == kConverted,
          "any file can be converted");
  Require(ReadBytes(script) == Expected(converter, file, request), "the script is the model's");
}

}  // namespace
}  // namespace quillkit

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  quillkit::Input input(data, size);
  const auto converter = quillkit::kConverters[input.TakeBelow(std::size(quillkit::kConverters))];
  const quillkit::model::Request request = quillkit::TakeRequest(input);
  quillkit::CheckConversion(converter, std::string(input.Rest()), request);
  return 0;
}
