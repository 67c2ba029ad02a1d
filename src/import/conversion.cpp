#include "import/conversion.h"

#include <utility>

namespace quillkit {

std::int32_t Conversion::Open(const char* sourcePath, ScriptTarget script) {
  if (!source_.Open(sourcePath)) return kSourceFailed;
  if (!script_.Open(std::move(script))) return kScriptFailed;
  return kConverted;
}

std::int32_t Conversion::Close() {
  if (!script_.Close()) return kScriptFailed;
  return source_.HasFailed() ? kSourceFailed : kConverted;
}

}  // namespace quillkit
