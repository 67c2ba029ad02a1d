#include "bridge/menu_item.h"

#include "base/archive.h"

namespace quillkit {

int CMenuItem::SetSettings(std::uint32_t value) {
  settings = value;
  return 1;
}

int CMenuItem::SetFileFormat(std::uint32_t value) {
  fileFormat = value;
  return 1;
}

int CMenuItem::SetAll(std::string_view newName, std::string_view newPath,
                      std::string_view newAppTag, std::string_view newIPAddress,
                      std::uint32_t newSettings, std::uint32_t newFileFormat) {
  const bool stored = SetName(newName) != 0 && SetPath(newPath) != 0 && SetAppTag(newAppTag) != 0 &&
                      SetIPAddress(newIPAddress) != 0 && SetSettings(newSettings) != 0 &&
                      SetFileFormat(newFileFormat) != 0;
  return stored ? 1 : 0;
}

int CMenuItem::SetSettingsLowHalf(std::uint16_t value) {
  settings = (settings & 0xFFFF0000U) | value;
  return 1;
}

int CMenuItem::AddSettingsNibble(std::uint32_t value) {
  settings |= (value & 0xF) << 16;
  return 1;
}

bool CMenuItem::IsValid() const {
  return name.IsTerminated() && path.IsTerminated() && appTag.IsTerminated() &&
         ipAddress.IsTerminated();
}

void CMenuItem::Serialize(Archive& archive) {
  std::string_view texts[] = {name.View(), path.View(), ipAddress.View(), appTag.View()};
  for (std::string_view& each : texts) archive.Exchange(each);
  archive.Exchange(settings);
  archive.Exchange(fileFormat);
  if (archive.IsStoring()) return;
  SetName(texts[0]);
  SetPath(texts[1]);
  SetIPAddress(texts[2]);
  SetAppTag(texts[3]);
}

}  // namespace quillkit
