// One selectable entry under a soft key, and also a soft key's own entry in the top-level book, in
// which only the name is filled in.
//
// The record is three things at once: the object behind a handle from CreateMenuItem, an element of
// a CSoftKey's block, and the entry record that travels to the server byte for byte. It holds no
// reference to anything and may be copied as a block. `name` is its key, and the only field that
// anything searches or compares.

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

  // A text setter stores the text and gives 1, or refuses one that is too long with 0 and no
  // change. Nothing else is checked: every byte but NUL and every word is accepted.
  int SetName(std::string_view text) { return name.Set(text); }
  int SetIPAddress(std::string_view text) { return ipAddress.Set(text); }
  int SetPath(std::string_view text) { return path.Set(text); }
  int SetAppTag(std::string_view text) { return appTag.Set(text); }
  int SetSettings(std::uint32_t value);
  int SetFileFormat(std::uint32_t value);

  // Stores the six fields in the order of the arguments. 1, or 0 at the first text that is refused:
  // what was stored before it stays, and what comes after it is not touched.
  int SetAll(std::string_view newName, std::string_view newPath, std::string_view newAppTag,
             std::string_view newIPAddress, std::uint32_t newSettings, std::uint32_t newFileFormat);

  // The low 16 bits of `settings`; the setter keeps the high ones and gives 1.
  std::uint16_t SettingsLowHalf() const { return static_cast<std::uint16_t>(settings); }
  int SetSettingsLowHalf(std::uint16_t value);

  // Bits 16 to 19 of `settings`. The setter can only add bits, and gives 1: a value that is there
  // is not lowered by it.
  std::uint32_t SettingsNibble() const { return (settings >> 16) & 0xF; }
  int AddSettingsNibble(std::uint32_t value);

  // Returns whether all four texts have their NUL.
  bool IsValid() const;

  // Ends all four texts inside their fields. Call it for records from a server.
  void Terminate();

  // The smallest number of bytes in an archive: four empty texts and two words.
  static constexpr std::size_t kSmallestStored = 12;

  // name, path, ipAddress, appTag, settings, fileFormat. Loading drops a text that is too long for
  // its field, which then keeps what it held.
  void Serialize(Archive& archive);
};

static_assert(sizeof(CMenuItem) == 552 && std::is_trivially_copyable_v<CMenuItem>);
static_assert(offsetof(CMenuItem, name) == 0 && offsetof(CMenuItem, ipAddress) == 32 &&
              offsetof(CMenuItem, settings) == 288 && offsetof(CMenuItem, fileFormat) == 292 &&
              offsetof(CMenuItem, path) == 296 && offsetof(CMenuItem, appTag) == 424);

}  // namespace quillkit

#endif  // QUILLKIT_BRIDGE_MENU_ITEM_H_
