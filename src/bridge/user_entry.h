// The account record: the entry of USERSAB.

#ifndef QUILLKIT_BRIDGE_USER_ENTRY_H_
#define QUILLKIT_BRIDGE_USER_ENTRY_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

#include "base/fixed_text.h"

namespace quillkit {

class Archive;

// The predefined account names.
inline constexpr std::string_view kAdministratorName = "ADMINISTRATOR";
inline constexpr std::string_view kToolkitName = "TOOLKIT";
inline constexpr std::string_view kGuestName = "GUEST";

struct CUserEntry {
  FixedText<32> name;  // the entry's key
  FixedText<16> password;
  FixedText<256> third;  // may hold a dotted network address
  FixedText<256> fourth;
  std::uint32_t tag = 0;      // not part of Set, nor of the stream form
  std::uint32_t flags = 0;    // bit 0: an on-off state; bit 4: a once-only mark
  std::uint32_t nibbles = 0;  // bits 0 to 3 and bits 4 to 7

  // Stores all fields except `tag`. Returns 1, or 0 and no change for a password over 15 or a third
  // or fourth text over 255 characters. The length of the name is not checked: with one over 31
  // characters the record is not valid, and Name() must not be called.
  int Set(std::string_view newName, std::string_view newPassword, std::string_view newThird,
          std::string_view newFourth, const std::uint32_t* newFlags,
          const std::uint32_t* newNibbles);

  // Returns whether the four texts are equal, byte for byte. The words are ignored.
  bool Equals(const CUserEntry& other) const;
  bool Differs(const CUserEntry& other) const { return !Equals(other); }

  // Store a field in the argument.
  void GetName(std::string& text) const { text = name.View(); }
  void GetPassword(std::string& text) const { text = password.View(); }
  void GetThird(std::string& text) const { text = third.View(); }
  void GetFourth(std::string& text) const { text = fourth.View(); }
  void GetTag(std::uint32_t* word) const { *word = tag; }
  void GetFlags(std::uint32_t* word) const { *word = flags; }
  void GetNibbles(std::uint32_t* word) const { *word = nibbles; }

  // Return a field in place; valid as long as the record.
  const char* Name() const { return name.c_str(); }
  const char* Password() const { return password.c_str(); }
  const char* Third() const { return third.c_str(); }
  const char* Fourth() const { return fourth.c_str(); }
  const std::uint32_t* Tag() const { return &tag; }
  const std::uint32_t* Flags() const { return &flags; }
  const std::uint32_t* Nibbles() const { return &nibbles; }

  bool HasTag() const { return tag != 0; }

  // Return 1, or 0 and no change for a text over 31, 15, 255 or 255 characters.
  int SetName(std::string_view text) { return name.Set(text); }
  int SetPassword(std::string_view text) { return password.Set(text); }
  int SetThird(std::string_view text) { return third.Set(text); }
  int SetFourth(std::string_view text) { return fourth.Set(text); }

  // Store the word. Always return 1.
  int SetTag(const std::uint32_t* word);
  int SetFlags(const std::uint32_t* word);
  int SetNibbles(const std::uint32_t* word);

  // Add the low four bits of the byte to the low or the high nibble; never clear bits. Always
  // return 1.
  int AddLowNibble(const std::uint8_t* bits);
  int AddHighNibble(const std::uint8_t* bits);
  std::uint32_t LowNibble() const { return nibbles & 0xF; }
  std::uint32_t HighNibble() const { return (nibbles >> 4) & 0xF; }

  // Overwrites the whole field.
  void WipePassword() { password.Wipe(); }

  // Returns whether all four texts have their NUL.
  bool IsValid() const;

  // Empties all fields and wipes the password. Bytes after the NUL of another text are not cleared.
  void Blank() {
    name.Assign({});
    WipePassword();
    third.Assign({});
    fourth.Assign({});
    tag = flags = nibbles = 0;
  }

  // Ends all four texts inside their fields. Call it for records from a server.
  void Terminate() {
    name.Terminate();
    password.Terminate();
    third.Terminate();
    fourth.Terminate();
  }

  bool IsAdministrator() const { return name == kAdministratorName; }
  bool IsToolkit() const { return name == kToolkitName; }
  bool IsDottedAddress() const;

  // The smallest number of bytes in an archive: four empty texts and two words.
  static constexpr std::size_t kSmallestStored = 12;

  // name, fourth, third, password, flags, nibbles. Loading truncates a text to its field.
  void Serialize(Archive& archive);
};

static_assert(sizeof(CUserEntry) == 572 && std::is_trivially_copyable_v<CUserEntry>);
static_assert(offsetof(CUserEntry, name) == 0 && offsetof(CUserEntry, password) == 32 &&
              offsetof(CUserEntry, third) == 48 && offsetof(CUserEntry, fourth) == 304 &&
              offsetof(CUserEntry, tag) == 560 && offsetof(CUserEntry, flags) == 564 &&
              offsetof(CUserEntry, nibbles) == 568);

}  // namespace quillkit

#endif  // QUILLKIT_BRIDGE_USER_ENTRY_H_
