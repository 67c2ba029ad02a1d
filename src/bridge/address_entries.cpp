#include "bridge/address_entries.h"

#include <algorithm>

#include "base/archive.h"

namespace quillkit {

int CEmailEntry::Set(const EntryKey& key, const char* newAddress) {
  if (newAddress == nullptr || !key.name.IsTerminated() || SetAddress(newAddress) == 0) return 0;
  name.Assign(key.name.View());
  flags = 0;
  return 1;
}

int CEmailEntry::SetFrom(const CEmailEntry& other) {
  return other.IsValid() ? Set(EntryKey(other.name.View()), other.Address()) : 0;
}

bool CEmailEntry::Matches(const CEmailEntry& a, const CEmailEntry& b) {
  return !(a.name == b.name) && !(a.address == b.address) && a.flags == b.flags;
}

void CEmailEntry::Serialize(Archive& archive) {
  archive.Exchange(name);
  archive.Exchange(address);
  archive.Exchange(flags);
}

int CFaxEntry::Set(const EntryKey& key, std::string_view newNumber, std::string_view newThird) {
  const int numberStored = SetNumber(newNumber);
  if (numberStored != 0) name.Assign(key.name.View());
  const int thirdStored = SetThird(newThird);
  return numberStored | thirdStored;
}

int CFaxEntry::SetFrom(const CFaxEntry& other) {
  return Set(EntryKey(other.name.View()), other.number.View(), other.third.View());
}

bool CFaxEntry::IsValid() const {
  return name.IsTerminated() && number.IsTerminated() && third.IsTerminated();
}

int CFaxEntry::HasDigit() const {
  const std::string_view text = number.View();
  return std::any_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; }) ? 1 : 0;
}

void CFaxEntry::Serialize(Archive& archive) {
  archive.Exchange(name);
  archive.Exchange(number);
  archive.Exchange(third);
}

}  // namespace quillkit
