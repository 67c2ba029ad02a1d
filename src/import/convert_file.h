// Chooses the converter of a file by its format.

#ifndef QUILLKIT_IMPORT_CONVERT_FILE_H_
#define QUILLKIT_IMPORT_CONVERT_FILE_H_

#include <cstdint>

#include "import/conversion_job.h"
#include "import/import_options.h"

namespace quillkit {

// Runs the converter for the format of `options` on the job and returns its result. `clearFirst` of
// the options replaces that of the job. Returns -11, with nothing touched, for a format without a
// converter.
std::int32_t ConvertFile(ConversionJob job, const ImportOptions& options);

}  // namespace quillkit

#endif  // QUILLKIT_IMPORT_CONVERT_FILE_H_
