// The names of the rows of an import, each with the row that it belongs to. At most 64 bytes are
// kept for each.

#ifndef QUILLCTL_NAME_TABLE_H_
#define QUILLCTL_NAME_TABLE_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <string_view>
#include <vector>

namespace quillctl {

// Returns a hash that differs in each run of the program. `before` is the hash of what comes
// before.
std::uint64_t HashOf(std::string_view text, std::uint64_t before = 0);

class NameTable {
 public:
  using Hash = std::array<std::uint32_t, 2>;  // so that a row has no padding

  // A row with a name.
  struct Named {
    std::uint32_t name;  // the position of its name in the texts
    std::uint32_t row;   // the number of the row, from 0
    std::uint32_t line;  // the line of the file
    Hash hash;           // of its other values
  };

  // Returns the row with this name. If there is none, adds one that has no row yet, and sets
  // `isNew`. References stay valid. Throws a std::length_error for more than 4 GiB of names.
  Named& Insert(std::string_view name, bool& isNew);

  // Returns the row with this name, or null.
  Named* Find(std::string_view name);

 private:
  static constexpr std::uint32_t kFree = 0xFFFFFFFF;

  std::size_t SlotOf(std::string_view name) const;
  std::string_view NameOf(const Named& each) const;
  std::uint32_t Store(std::string_view name);
  void Grow();

  std::vector<std::uint32_t> slots;  // positions in `named`, by the hash of the name
  std::deque<Named> named;
  std::deque<std::unique_ptr<char[]>> texts;  // each name after its length
  std::size_t used = 0;                       // bytes of the last text
};

}  // namespace quillctl

#endif  // QUILLCTL_NAME_TABLE_H_
