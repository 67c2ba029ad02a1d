// Converts one file as an import by an administrator does, without a server:
//
//   convert_file delimited|directory|mailserver SOURCE SCRIPT
//
// A delimited file has the name in its first column and the address in its second. Exits with 0, or
// with 1 if the file cannot be converted. Prints the processor time of the conversion in
// nanoseconds, and the peak memory of the process in KiB, or 0 if the system does not report it.

#include <cstdint>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <string>
#include <string_view>
#include <utility>

#include "import/convert_delimited_text.h"
#include "import/convert_directory_export.h"
#include "import/convert_mail_server_export.h"

namespace quillkit {
namespace {

std::int32_t ConvertFile(std::string_view format, const char* source, const char* script) {
  constexpr std::int32_t kColumns[] = {0, 1};
  ConversionJob job{.sourcePath = source, .script = script, .isAdmin = true};
  if (format == "delimited") return ConvertDelimitedText(std::move(job), {.columnMap = kColumns});
  if (format == "directory") return ConvertDirectoryExport(std::move(job));
  return ConvertMailServerExport(std::move(job));
}

double ProcessorTime() {
  timespec time{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return 1e9 * static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec);
}

long PeakMemory() {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    long kibibytes = 0;
    if (word == "VmHWM:" && status >> kibibytes) return kibibytes;
  }
  return 0;
}

}  // namespace
}  // namespace quillkit

int main(int argc, char** argv) {
  if (argc != 4) {
    std::fputs("usage: convert_file delimited|directory|mailserver SOURCE SCRIPT\n", stderr);
    return 2;
  }
  const double start = quillkit::ProcessorTime();
  const std::int32_t result = quillkit::ConvertFile(argv[1], argv[2], argv[3]);
  std::printf("%.0f %ld\n", quillkit::ProcessorTime() - start, quillkit::PeakMemory());
  return result == 0 ? 0 : 1;
}
