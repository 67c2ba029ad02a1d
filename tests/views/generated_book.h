// Books for the tests of views, generated from a style and a size.

#ifndef QUILLKIT_TESTS_VIEWS_GENERATED_BOOK_H_
#define QUILLKIT_TESTS_VIEWS_GENERATED_BOOK_H_

#include <cstddef>

#include "tests/views/model_view.h"

namespace quillkit {

enum class BookStyle {
  kOneLetter,
  kManyLetters,     // with names that begin other names
  kEightBit,        // first bytes on both sides of 128
  kManyFirstBytes,  // each of 255, so that a census of 128 is not enough from 129 entries on
};

inline constexpr BookStyle kBookStyles[] = {BookStyle::kOneLetter, BookStyle::kManyLetters,
                                            BookStyle::kEightBit, BookStyle::kManyFirstBytes};

const char* StyleName(BookStyle style);

// So many entries of different names, in the server's order.
Entries GeneratedBook(BookStyle style, std::size_t size);

// Replaces the e-mail book of the simulated appliance, behind the library's back, and drops what
// was armed against its calls.
void PutBook(const Entries& entries);

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_VIEWS_GENERATED_BOOK_H_
