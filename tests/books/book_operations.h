// The operations of the books, the lists and the accounts, as rows of the failure sweep.

#ifndef QUILLKIT_TESTS_BOOKS_BOOK_OPERATIONS_H_
#define QUILLKIT_TESTS_BOOKS_BOOK_OPERATIONS_H_

#include "tests/support/failure_sweep.h"

namespace quillkit {

Operations BookOperations();

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_BOOKS_BOOK_OPERATIONS_H_
