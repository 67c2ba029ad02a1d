// What the converters must write, worked out slowly and plainly: every rule is one step on copies
// of texts. Tests compare the converters with it on files of random bytes.

#ifndef QUILLKIT_TESTS_IMPORT_CONVERSION_MODEL_H_
#define QUILLKIT_TESTS_IMPORT_CONVERSION_MODEL_H_

#include <cstdint>
#include <string>
#include <vector>

namespace quillkit::model {

// What a conversion is asked to do; the last three say how a delimited file is read.
struct Request {
  bool isAdmin = true;
  bool clearFirst = false;
  std::int32_t targetBook = 1;
  std::vector<std::int32_t> columnMap = {0, 1};
  bool skipHeader = false;
};

// The lines of a file, cut and folded as the converters read them.
std::vector<std::string> Lines(const std::string& file);

std::string DelimitedText(const std::string& file, const Request& request);
std::string DirectoryExport(const std::string& file, const Request& request);
std::string MailServerExport(const std::string& file, const Request& request);

}  // namespace quillkit::model

#endif  // QUILLKIT_TESTS_IMPORT_CONVERSION_MODEL_H_
