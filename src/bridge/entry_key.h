// The name of one entry in a book.

#ifndef QUILLKIT_BRIDGE_ENTRY_KEY_H_
#define QUILLKIT_BRIDGE_ENTRY_KEY_H_

#include <cstddef>
#include <string_view>

#include "base/fixed_text.h"

namespace quillkit {

struct EntryKey {
  FixedText<32> name;

  EntryKey() = default;
  explicit EntryKey(std::string_view text) : name(text) {}

  // Returns the key of a name, or the empty key for a name of 32 or more characters: truncated, it
  // could be the name of another entry.
  static EntryKey Of(std::string_view name) {
    EntryKey key;
    key.SetKey(name);
    return key;
  }

  // Returns 1, or 0 and no change for a text of 32 or more characters.
  int SetKey(std::string_view text) { return name.Set(text); }

  // Ends the text inside its field. Call it for rows from a server.
  void Terminate() { name.Terminate(); }

  // Returns a number below, equal to or above 0 if this key sorts before, like or after `other`.
  // Compares unsigned bytes up to the first NUL.
  int Compare(const EntryKey& other) const { return name.View().compare(other.name.View()); }

  friend bool operator==(const EntryKey& a, const EntryKey& b) { return a.name == b.name; }
  friend bool operator<(const EntryKey& a, const EntryKey& b) { return a.Compare(b) < 0; }
};

static_assert(sizeof(EntryKey) == 32 && offsetof(EntryKey, name) == 0);

}  // namespace quillkit

#endif  // QUILLKIT_BRIDGE_ENTRY_KEY_H_
