// The changes that make one key set of another.

#ifndef QUILLKIT_EXAMPLES_KEY_SET_DIFFERENCE_H_
#define QUILLKIT_EXAMPLES_KEY_SET_DIFFERENCE_H_

#include <string>
#include <vector>

#include "quillctl/key_set.h"

namespace quillctl {

struct KeySetChange {
  // In the order in which they are made: what goes makes room for what comes.
  enum Kind { kDeleteItem, kDeleteKey, kChangeItem, kAddKey, kAddItem };

  Kind kind;
  std::string key;
  ItemFields item;         // where it is about an item; of one that changes, as it will be
  ItemFields before = {};  // of one that changes
};

// In the order of their kinds. The order of keys and of items does not count, and a key or an item
// with another name is another one.
std::vector<KeySetChange> Difference(const KeySet& now, const KeySet& wanted);

// A line that begins with "-", "~" or "+": what goes, changes or comes.
std::string Described(const KeySetChange& change);

}  // namespace quillctl

#endif  // QUILLKIT_EXAMPLES_KEY_SET_DIFFERENCE_H_
