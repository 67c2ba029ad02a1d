// How many books and entries the appliance holds.

#ifndef QUILLKIT_SIMULATOR_LIMITS_H_
#define QUILLKIT_SIMULATOR_LIMITS_H_

#include <cstddef>
#include <cstdint>
#include <map>
#include <span>
#include <string_view>

#include "simulator/protocol.h"

namespace quillbox {

// A limit: of the entries of each book of some kinds, or of the number of such books.
struct Limit {
  std::string_view name;
  BookKind kind = BookKind::kNone;
  bool ofBooks = false;
  std::uint32_t most = 0;  // 0: none
};

class Limits {
 public:
  // The limits of the appliance. A name has a row for each kind of book that it limits.
  static std::span<const Limit> OfAppliance();

  // Limits nothing.
  static const Limits& None();

  // Changes the limit of a name, for all its kinds of books. 0 removes it. Returns false for an
  // unknown name.
  bool Set(std::string_view name, std::uint32_t most);

  // Whether a book with this many entries takes no other entry, and whether there is no space for
  // another book beside this many.
  bool IsFull(BookKind kind, std::size_t entries) const { return IsReached(kind, false, entries); }
  bool HasAllBooks(BookKind kind, std::size_t books) const { return IsReached(kind, true, books); }

 private:
  bool IsReached(BookKind kind, bool ofBooks, std::size_t count) const;

  std::map<std::string_view, std::uint32_t> changed;  // by the name in the table
};

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_LIMITS_H_
