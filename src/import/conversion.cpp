#include "import/conversion.h"

namespace quillkit {

std::int32_t Conversion::Open(ConversionJob* job) {
  observer = job->observer;
  isAdmin = job->isAdmin;
  if (!source.Open(job->sourcePath)) return kSourceFailed;
  if (!writer.Open(job->script.Open())) return kScriptFailed;
  return kConverted;
}

std::int32_t Conversion::Close() {
  if (!writer.Close()) return kScriptFailed;
  return source.HasFailed() ? kSourceFailed : kConverted;
}

}  // namespace quillkit
