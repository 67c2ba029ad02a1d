// How many books and entries the appliance holds.

#ifndef QUILLKIT_SIMULATOR_LIMITS_H_
#define QUILLKIT_SIMULATOR_LIMITS_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "simulator/protocol.h"

namespace quillbox {

class Limits {
 public:
  static constexpr std::size_t kCount = 14;

  // The limits of the appliance.
  Limits();

  // Limits nothing.
  static constexpr Limits None() { return Limits(std::array<std::uint32_t, kCount>{}); }

  // Changes the limit of a name, for all its kinds of books. 0 removes it. Returns false for an
  // unknown name.
  bool Set(std::string_view name, std::uint32_t number);

  // Whether a book with this many entries takes no other entry, and whether there is no space for
  // another book beside this many.
  bool IsFull(BookKind kind, std::size_t entries) const { return IsReached(kind, false, entries); }
  bool HasAllBooks(BookKind kind, std::size_t books) const { return IsReached(kind, true, books); }

 private:
  explicit constexpr Limits(const std::array<std::uint32_t, kCount>& numbers) : most(numbers) {}

  bool IsReached(BookKind kind, bool ofBooks, std::size_t count) const;

  std::array<std::uint32_t, kCount> most = {};  // in the order of the table; 0: none
};

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_LIMITS_H_
