// The entries of the e-mail and fax books and the members of their distribution lists, which are
// the same records.

#ifndef QUILLKIT_BRIDGE_ADDRESS_ENTRIES_H_
#define QUILLKIT_BRIDGE_ADDRESS_ENTRIES_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

#include "base/fixed_text.h"
#include "bridge/entry_key.h"

namespace quillkit {

class Archive;

struct CEmailEntry {
  FixedText<32> name;  // the entry's key; books are ordered by it
  FixedText<256> address;
  // 0 in a book entry. In a member of a private list: 1 for an entry of the private book with the
  // same address, 0 for a reference to the public book, which is sent with an empty address.
  std::int32_t flags = 0;

  // Stores key and address and clears `flags`. Returns 1, or 0 and no change for a null address, an
  // address over 255 characters, or a key over 31.
  int Set(const EntryKey& key, const char* newAddress);

  // Calls Set with the name and address of another entry, which may be this one. Returns its
  // result, or 0 and no change if one of them has no NUL in its field.
  int SetFrom(const CEmailEntry& other);

  const char* Name() const { return name.c_str(); }
  const char* Address() const { return address.c_str(); }
  std::int32_t Flags() const { return flags; }
  void GetName(std::string& text) const { text = name.View(); }
  void GetAddress(std::string& text) const { text = address.View(); }

  // Return 1, or 0 and no change for a text over 31 or 255 characters. `flags` stay unchanged.
  int SetName(std::string_view text) { return name.Set(text); }
  int SetAddress(std::string_view text) { return address.Set(text); }

  bool HasNoFlags() const { return flags == 0; }

  // Empties the address of a member of a private list that refers to the public book.
  void BlankPublicAddress() {
    if (HasNoFlags()) SetAddress({});
  }

  bool IsBlank() const { return name.IsEmpty() && address.IsEmpty(); }
  bool IsValid() const { return name.IsTerminated() && address.IsTerminated(); }

  // Empties all fields. Bytes after a NUL are not cleared.
  void Blank() {
    name.Assign({});
    address.Assign({});
    flags = 0;
  }

  // Ends both texts inside their fields. Call it for records from a server.
  void Terminate() {
    name.Terminate();
    address.Terminate();
  }

  // Not an equality: returns true only if the names differ, the addresses differ and the flags are
  // equal. A record never matches itself.
  static bool Matches(const CEmailEntry& a, const CEmailEntry& b);
  static bool Differs(const CEmailEntry& a, const CEmailEntry& b) { return !Matches(a, b); }

  // The smallest number of bytes in an archive: two empty texts and the flags.
  static constexpr std::size_t kSmallestStored = 6;

  // name, address, flags. Loading truncates a text to its field.
  void Serialize(Archive& archive);
};

struct CFaxEntry {
  FixedText<32> name;  // the entry's key
  FixedText<80> number;
  FixedText<11> third;

  // Two independent steps: stores a number of at most 79 characters together with the name of the
  // key, and stores a third text of at most 10 characters. Returns 1 if at least one step stored
  // something, otherwise 0.
  int Set(const EntryKey& key, std::string_view newNumber, std::string_view newThird);

  // Calls Set with the texts of another entry, which may be this one, and returns its result.
  int SetFrom(const CFaxEntry& other);

  const char* Name() const { return name.c_str(); }
  const char* Number() const { return number.c_str(); }
  const char* Third() const { return third.c_str(); }
  void GetName(std::string& text) const { text = name.View(); }
  void GetNumber(std::string& text) const { text = number.View(); }
  void GetThird(std::string& text) const { text = third.View(); }

  // Return 1, or 0 and no change for a text over 31, 79 or 10 characters.
  int SetName(std::string_view text) { return name.Set(text); }
  int SetNumber(std::string_view text) { return number.Set(text); }
  int SetThird(std::string_view text) { return third.Set(text); }

  // Ignores `third`.
  bool IsBlank() const { return name.IsEmpty() && number.IsEmpty(); }
  bool IsValid() const;

  // Empties all fields. Bytes after a NUL are not cleared.
  void Blank() {
    name.Assign({});
    number.Assign({});
    third.Assign({});
  }

  // Ends the three texts inside their fields. Call it for records from a server.
  void Terminate() {
    name.Terminate();
    number.Terminate();
    third.Terminate();
  }

  // Returns 1 if the number contains a decimal digit, otherwise 0.
  int HasDigit() const;

  // Matches if the numbers are equal, byte for byte. The names are ignored.
  static bool Matches(const CFaxEntry& a, const CFaxEntry& b) { return a.number == b.number; }
  static bool Differs(const CFaxEntry& a, const CFaxEntry& b) { return !Matches(a, b); }

  // The smallest number of bytes in an archive: three empty texts.
  static constexpr std::size_t kSmallestStored = 3;

  // name, number, third. Loading truncates a text to its field.
  void Serialize(Archive& archive);
};

static_assert(sizeof(CEmailEntry) == 292 && std::is_trivially_copyable_v<CEmailEntry>);
static_assert(offsetof(CEmailEntry, name) == 0 && offsetof(CEmailEntry, address) == 32 &&
              offsetof(CEmailEntry, flags) == 288);
static_assert(sizeof(CFaxEntry[3]) == 369 && std::is_trivially_copyable_v<CFaxEntry>);
static_assert(offsetof(CFaxEntry, name) == 0 && offsetof(CFaxEntry, number) == 32 &&
              offsetof(CFaxEntry, third) == 112);

}  // namespace quillkit

#endif  // QUILLKIT_BRIDGE_ADDRESS_ENTRIES_H_
