#include "import/conversion.h"

namespace quillkit {

std::int32_t Conversion::Open(ConversionJob* job) {
  if (!source_.Open(job->sourcePath)) return kSourceFailed;
  if (!script_.Open(job->script.Open())) return kScriptFailed;
  return kConverted;
}

std::int32_t Conversion::Close() {
  if (!script_.Close()) return kScriptFailed;
  return source_.HasFailed() ? kSourceFailed : kConverted;
}

}  // namespace quillkit
