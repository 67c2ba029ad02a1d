// The exported functions, with every one of their server calls failing in turn.

#include "tests/toolkit/export_operations.h"

namespace quillkit {
namespace {

INSTANTIATE_TEST_SUITE_P(Exports, FailureSweep, testing::ValuesIn(ExportOperations()),
                         OperationName);

}  // namespace
}  // namespace quillkit
