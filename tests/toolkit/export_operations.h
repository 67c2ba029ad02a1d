// The exported functions that call the server, except the import.

#ifndef QUILLKIT_TESTS_TOOLKIT_EXPORT_OPERATIONS_H_
#define QUILLKIT_TESTS_TOOLKIT_EXPORT_OPERATIONS_H_

#include "tests/support/failure_sweep.h"

namespace quillkit {

Operations ExportOperations();

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_TOOLKIT_EXPORT_OPERATIONS_H_
