// The entries of the e-mail and fax books and of their distribution lists. A list member is the
// same record as a book entry.

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
  // 0 in a book entry. In a private list member: 1 for an entry of the private book with the same
  // address, 0 for a reference to the public book, whose address is blanked on the way out.
  std::int32_t flags = 0;

  // Stores key and address, clears `flags` and gives 1. 0 and no change for a null address, one
  // over 255 characters, or a key over 31.
  int Set(const EntryKey& key, const char* newAddress);

  // Set with name and address of another entry, which may be this one; 0 and no change when they do
  // not end in their fields.
  int SetFrom(const CEmailEntry& other);

  const char* Name() const { return name.c_str(); }
  const char* Address() const { return address.c_str(); }
  std::int32_t Flags() const { return flags; }
  void GetName(std::string& text) const { text = name.View(); }
  void GetAddress(std::string& text) const { text = address.View(); }

  // 1, or 0 and no change for a text over 31 or 255 characters. `flags` stay.
  int SetName(std::string_view text) { return name.Set(text); }
  int SetAddress(std::string_view text) { return address.Set(text); }

  bool HasNoFlags() const { return flags == 0; }

  // Empties the address of a private list's member that refers to the public book.
  void BlankPublicAddress() {
    if (HasNoFlags()) SetAddress({});
  }

  bool IsBlank() const { return name.IsEmpty() && address.IsEmpty(); }
  bool IsValid() const { return name.IsTerminated() && address.IsTerminated(); }

  // Empties all fields; what stands behind a text's NUL means nothing.
  void Blank() {
    name.Assign({});
    address.Assign({});
    flags = 0;
  }

  // Ends both texts inside their fields: for records that a server filled in.
  void Terminate() {
    name.Terminate();
    address.Terminate();
  }

  // Not an equality: true only when the names differ, the addresses differ and the flags are equal.
  // A record never matches itself.
  static bool Matches(const CEmailEntry& a, const CEmailEntry& b);
  static bool Differs(const CEmailEntry& a, const CEmailEntry& b) { return !Matches(a, b); }

  // The bytes of the stream form at the least: two lengths and the flags.
  static constexpr std::size_t kSmallestStored = 6;

  // name, address, flags. Loading cuts a text where its field ends.
  void Serialize(Archive& archive);
};

struct CFaxEntry {
  FixedText<32> name;  // the entry's key
  FixedText<80> number;
  FixedText<11> third;

  // Two independent steps: a number of at most 79 characters is stored together with the key's
  // name, and a third text of at most 10 characters is stored. 1 when at least one step stored,
  // else 0.
  int Set(const EntryKey& key, std::string_view newNumber, std::string_view newThird);

  // Set with the texts of another entry, which may be this one.
  int SetFrom(const CFaxEntry& other);

  const char* Name() const { return name.c_str(); }
  const char* Number() const { return number.c_str(); }
  const char* Third() const { return third.c_str(); }
  void GetName(std::string& text) const { text = name.View(); }
  void GetNumber(std::string& text) const { text = number.View(); }
  void GetThird(std::string& text) const { text = third.View(); }

  // 1, or 0 and no change for a text over 31, 79 or 10 characters.
  int SetName(std::string_view text) { return name.Set(text); }
  int SetNumber(std::string_view text) { return number.Set(text); }
  int SetThird(std::string_view text) { return third.Set(text); }

  // `third` plays no part.
  bool IsBlank() const { return name.IsEmpty() && number.IsEmpty(); }
  bool IsValid() const;

  // Empties all fields; what stands behind a text's NUL means nothing.
  void Blank() {
    name.Assign({});
    number.Assign({});
    third.Assign({});
  }

  // Ends the three texts inside their fields: for records that a server filled in.
  void Terminate() {
    name.Terminate();
    number.Terminate();
    third.Terminate();
  }

  // 1 when the number holds a decimal digit, else 0.
  int HasDigit() const;

  // The numbers are equal, byte for byte; the names play no part.
  static bool Matches(const CFaxEntry& a, const CFaxEntry& b) { return a.number == b.number; }
  static bool Differs(const CFaxEntry& a, const CFaxEntry& b) { return !Matches(a, b); }

  // The fewest bytes of the stream form: three empty texts.
  static constexpr std::size_t kSmallestStored = 3;

  // name, number, third. Loading cuts a text where its field ends.
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
