// A map of values by name, in the order of unsigned bytes, with access by position.
//
// Every operation takes logarithmic time, not counting copies. A pointer to a value is valid until
// the value is erased or renamed.

#ifndef QUILLKIT_SIMULATOR_ORDERED_H_
#define QUILLKIT_SIMULATOR_ORDERED_H_

#include <ext/pb_ds/assoc_container.hpp>
#include <ext/pb_ds/tree_policy.hpp>

#include <cstddef>
#include <cstring>
#include <utility>

#include "simulator/protocol.h"

namespace quillbox {

// The order of keys: unsigned bytes up to the first NUL.
struct NameOrder {
  bool operator()(const EntryKey& a, const EntryKey& b) const {
    return std::strncmp(reinterpret_cast<const char*>(&a), reinterpret_cast<const char*>(&b),
                        sizeof a) < 0;
  }
};

template <class Value>
class Ordered {
  using Tree = __gnu_pbds::tree<EntryKey, Value, NameOrder, __gnu_pbds::rb_tree_tag,
                                __gnu_pbds::tree_order_statistics_node_update>;

 public:
  using Iterator = typename Tree::const_iterator;

  Ordered() = default;
  Ordered(const Ordered&) = default;
  Ordered& operator=(const Ordered&) = default;
  Ordered(Ordered&& other) noexcept { tree.swap(other.tree); }
  Ordered& operator=(Ordered&& other) noexcept {
    tree.swap(other.tree);
    return *this;
  }
  ~Ordered() = default;

  std::size_t Size() const { return tree.size(); }

  // The names and values, in order.
  Iterator begin() const { return tree.begin(); }
  Iterator end() const { return tree.end(); }

  // Returns the value of this name, or null.
  Value* Find(const EntryKey& key) {
    const auto found = tree.find(key);
    return found == tree.end() ? nullptr : &found->second;
  }
  const Value* Find(const EntryKey& key) const {
    const auto found = tree.find(key);
    return found == tree.end() ? nullptr : &found->second;
  }

  // The number of names that sort before this one, and before or equal to it.
  std::size_t CountBefore(const EntryKey& key) const { return tree.order_of_key(key); }
  std::size_t CountThrough(const EntryKey& key) const {
    return CountBefore(key) + (Find(key) != nullptr ? 1 : 0);
  }

  // The name and value at a position. REQUIRES: `index` is below Size().
  Iterator At(std::size_t index) const { return tree.find_by_order(index); }

  // Returns the value of this name. Creates an empty one if it does not exist.
  Value& operator[](const EntryKey& key) { return tree[key]; }

  // Returns whether the name existed.
  bool Erase(const EntryKey& key) { return tree.erase(key); }

  // Returns the renamed value. REQUIRES: `from` exists and `to` does not.
  Value& Rename(const EntryKey& from, const EntryKey& to) {
    Value value = std::move(tree[from]);
    tree.erase(from);
    return tree[to] = std::move(value);
  }

 private:
  Tree tree;
};

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_ORDERED_H_
