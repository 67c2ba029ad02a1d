#include "import/import_address_book.h"

#include <string>
#include <utility>

#include "appliance/scanner.h"
#include "books/connected_user.h"
#include "import/conversion.h"
#include "import/convert_file.h"
#include "platform/files.h"
#include "platform/message_pump.h"

namespace quillkit {
namespace {

constexpr const char* kScriptPrefix = "QK7";

// Makes the server run the script. Shows the wait cursor meanwhile.
std::int32_t SubmitImportScript(const CScanner* scanner, const std::string& script) {
  BeginWaitCursor();
  const std::int32_t result = scanner != nullptr ? scanner->RunBatch(script) : kRefused;
  EndWaitCursor();
  return result;
}

}  // namespace

std::int32_t ImportAddressBookFile(const CScanner* scanner, const char* path,
                                   const ImportOptions* options) {
  if (options == nullptr) return kMissingArgument;
  if (!MatchesAnyFile(path)) return kRefused;

  // If no file can be created, the converter reports that it cannot write the script.
  CreatedFile script = CreateTemporaryFile(kScriptPrefix);
  if (options->format == ImportFormatScript) {
    script.file.Close();
    DeleteFileAt(script.path);
    return SubmitImportScript(scanner, path);
  }
  const std::int32_t failure = ConvertFile({.sourcePath = path,
                                            .script = std::move(script.file),
                                            .isAdmin = IsConnectedUserAdministrator(scanner) != 0},
                                           *options);
  if (failure != kConverted) return failure;
  const std::int32_t result = SubmitImportScript(scanner, script.path);
  DeleteFileAt(script.path);
  return result;
}

}  // namespace quillkit
