#include "import/conversion.h"

namespace quillkit {

std::int32_t Conversion::Open(const char* sourcePath, const char* scriptPath) {
  if (!source_.Open(sourcePath)) return kSourceFailed;
  if (!script_.Open(scriptPath)) return kScriptFailed;
  return kConverted;
}

std::int32_t Conversion::Close() {
  if (!script_.Close()) return kScriptFailed;
  return source_.HasFailed() ? kSourceFailed : kConverted;
}

}  // namespace quillkit
