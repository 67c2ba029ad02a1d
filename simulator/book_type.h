// What the appliance knows of each kind of book: its name, whose it is, and its record.

#ifndef QUILLKIT_SIMULATOR_BOOK_TYPE_H_
#define QUILLKIT_SIMULATOR_BOOK_TYPE_H_

#include <cstddef>
#include <span>
#include <string_view>

#include "simulator/protocol.h"

namespace quillbox {

// A text in a record: where its field begins and how many bytes that has.
struct TextField {
  std::size_t offset = 0;
  std::size_t size = 0;
};

struct BookType {
  BookKind kind = BookKind::kNone;
  bool isPrivate = false;      // each user has books of their own
  std::string_view fixedName;  // of the one book of its kind; empty: any number, each with a name
  std::size_t recordSize = 0;
  std::span<const TextField> texts;

  bool IsFixed() const { return !fixedName.empty(); }

  // Whether a book of this kind may be meant: a fixed one by its name or an empty one.
  bool Accepts(const FixedText<32>& name) const {
    return !IsFixed() || name.IsEmpty() || name == fixedName;
  }
};

// Null for a kind that does not exist.
const BookType* TypeOf(BookKind kind);

// The name that a record carries in its first field, as it stands: without a NUL when it has none.
EntryKey NameOf(const void* record);

// Whether every text ends inside its field and the name is not empty.
bool IsStorable(const BookType& type, const void* record);

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_BOOK_TYPE_H_
