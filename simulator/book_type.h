// The properties of each kind of book: its name, its owner and its record.

#ifndef QUILLKIT_SIMULATOR_BOOK_TYPE_H_
#define QUILLKIT_SIMULATOR_BOOK_TYPE_H_

#include <cstddef>
#include <span>
#include <string_view>

#include "simulator/protocol.h"

namespace quillbox {

// A text field of a record: its offset and its size in bytes.
struct TextField {
  std::size_t offset = 0;
  std::size_t size = 0;
};

struct BookType {
  BookKind kind = BookKind::kNone;
  bool isPrivate = false;  // each user has a separate set of books
  // The name of the only book of this kind. Empty: any number of books, each with its own name.
  std::string_view fixedName;
  std::size_t recordSize = 0;
  std::span<const TextField> texts;

  bool IsFixed() const { return !fixedName.empty(); }

  // Whether the name can be that of a book of this kind. An empty name means the fixed book.
  bool Accepts(const FixedText<32>& name) const {
    return !IsFixed() || name.IsEmpty() || name == fixedName;
  }
};

// Returns null for a kind that does not exist.
const BookType* TypeOf(BookKind kind);

// The name in the first field of a record: up to its NUL, or the whole field if it has none.
EntryKey NameOf(const void* record);

// Whether every text has a NUL in its field and the name is not empty.
bool IsStorable(const BookType& type, const void* record);

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_BOOK_TYPE_H_
