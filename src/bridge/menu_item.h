// One menu item of a soft key, and also a soft key's entry in the top-level book, where only the
// name is set.
//
// The record has three uses: it is the object of a handle from CreateMenuItem, an element of the
// block of a CSoftKey, and the entry record that is sent to the server byte for byte. It holds no
// references and may be copied bytewise. `name` is its key, and the only field that is searched or
// compared.

#ifndef QUILLKIT_BRIDGE_MENU_ITEM_H_
#define QUILLKIT_BRIDGE_MENU_ITEM_H_

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <type_traits>

#include "base/fixed_text.h"

namespace quillkit {

class Archive;

struct CMenuItem {
  FixedText<32> name;
  FixedText<256> ipAddress;
  std::uint32_t settings = 0;
  std::uint32_t fileFormat = 0;
  FixedText<128> path;
  FixedText<128> appTag;

  // Store a text or a word. Return 1; a text setter returns 0 and changes nothing for a text that
  // is too long. Nothing else is checked: every byte except NUL and every word is accepted.
  int SetName(std::string_view text) { return name.Set(text); }
  int SetIPAddress(std::string_view text) { return ipAddress.Set(text); }
  int SetPath(std::string_view text) { return path.Set(text); }
  int SetAppTag(std::string_view text) { return appTag.Set(text); }
  int SetSettings(std::uint32_t value);
  int SetFileFormat(std::uint32_t value);

  // Stores the six fields in the order of the arguments. Returns 1, or 0 at the first text that is
  // too long: the fields before it are changed, the others are not.
  int SetAll(std::string_view newName, std::string_view newPath, std::string_view newAppTag,
             std::string_view newIPAddress, std::uint32_t newSettings, std::uint32_t newFileFormat);

  // The low 16 bits of `settings`. The setter keeps the high bits and returns 1.
  std::uint16_t SettingsLowHalf() const { return static_cast<std::uint16_t>(settings); }
  int SetSettingsLowHalf(std::uint16_t value);

  // Bits 16 to 19 of `settings`. The setter only adds bits, never clears them, and returns 1.
  std::uint32_t SettingsNibble() const { return (settings >> 16) & 0xF; }
  int AddSettingsNibble(std::uint32_t value);

  // Returns whether all four texts have their NUL.
  bool IsValid() const;

  // Empties all fields. Bytes after a NUL are not cleared.
  void Blank() {
    name.Assign({});
    ipAddress.Assign({});
    settings = 0;
    fileFormat = 0;
    path.Assign({});
    appTag.Assign({});
  }

  // Ends all four texts inside their fields. Call it for records from a server.
  void Terminate() {
    name.Terminate();
    ipAddress.Terminate();
    path.Terminate();
    appTag.Terminate();
  }

  // The smallest number of bytes in an archive: four empty texts and two words.
  static constexpr std::size_t kSmallestStored = 12;

  // name, path, ipAddress, appTag, settings, fileFormat. Loading ignores a text that is too long
  // for its field, which then keeps its value.
  void Serialize(Archive& archive);
};

static_assert(sizeof(CMenuItem) == 552 && std::is_trivially_copyable_v<CMenuItem>);
static_assert(offsetof(CMenuItem, name) == 0 && offsetof(CMenuItem, ipAddress) == 32 &&
              offsetof(CMenuItem, settings) == 288 && offsetof(CMenuItem, fileFormat) == 292 &&
              offsetof(CMenuItem, path) == 296 && offsetof(CMenuItem, appTag) == 424);

}  // namespace quillkit

#endif  // QUILLKIT_BRIDGE_MENU_ITEM_H_
