#include "bridge/user_entry.h"

#include "base/archive.h"
#include "platform/name_service.h"

namespace quillkit {

int CUserEntry::Set(std::string_view newName, std::string_view newPassword,
                    std::string_view newThird, std::string_view newFourth,
                    const std::uint32_t* newFlags, const std::uint32_t* newNibbles) {
  if (newPassword.size() > password.kMaxLength || newThird.size() > third.kMaxLength ||
      newFourth.size() > fourth.kMaxLength) {
    return 0;
  }
  name.AssignOrFill(newName);
  password.Assign(newPassword);
  third.Assign(newThird);
  fourth.Assign(newFourth);
  flags = *newFlags;
  nibbles = *newNibbles;
  return 1;
}

bool CUserEntry::Equals(const CUserEntry& other) const {
  return name == other.name && password == other.password && third == other.third &&
         fourth == other.fourth;
}

int CUserEntry::SetTag(const std::uint32_t* word) {
  tag = *word;
  return 1;
}

int CUserEntry::SetFlags(const std::uint32_t* word) {
  flags = *word;
  return 1;
}

int CUserEntry::SetNibbles(const std::uint32_t* word) {
  nibbles = *word;
  return 1;
}

int CUserEntry::AddLowNibble(const std::uint8_t* bits) {
  nibbles |= *bits & 0xFU;
  return 1;
}

int CUserEntry::AddHighNibble(const std::uint8_t* bits) {
  nibbles |= (*bits & 0xFU) << 4;
  return 1;
}

bool CUserEntry::IsValid() const {
  return name.IsTerminated() && password.IsTerminated() && third.IsTerminated() &&
         fourth.IsTerminated();
}

bool CUserEntry::IsDottedAddress() const {
  return TextToAddress(std::string(third.View()).c_str()) != kNoAddress;
}

void CUserEntry::Serialize(Archive& archive) {
  archive.Exchange(name);
  archive.Exchange(fourth);
  archive.Exchange(third);
  archive.Exchange(password);
  archive.Exchange(flags);
  archive.Exchange(nibbles);
}

}  // namespace quillkit
