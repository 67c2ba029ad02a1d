// The operations of the class library that allocate memory, besides those of the books: views,
// archives, agent, scanner, searches and settings. Their server calls are not predicted.

#ifndef QUILLKIT_TESTS_MEMORY_CLASS_OPERATIONS_H_
#define QUILLKIT_TESTS_MEMORY_CLASS_OPERATIONS_H_

#include <string>

#include "tests/support/failure_sweep.h"

namespace quillkit {

// Too long to be stored in a std::string without an allocation.
inline const std::string kLongName(31, 'n');

Operations ClassOperations();

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_MEMORY_CLASS_OPERATIONS_H_
