#include "quillctl/name_table.h"

#include <algorithm>
#include <random>
#include <stdexcept>

namespace quillctl {
namespace {

constexpr std::size_t kTextSize = std::size_t{64} << 10;
constexpr std::size_t kMostTexts = std::size_t{64} << 10;
constexpr std::size_t kFirstSlots = 1024;

}  // namespace

// The seed is random, so that no file can be made whose texts have chosen hashes.
std::uint64_t HashOf(std::string_view text, std::uint64_t before) {
  static const std::uint64_t seed =
      std::uint64_t{std::random_device()()} << 32 | std::random_device()();
  std::uint64_t hash = before ^ seed;
  for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3;
  return hash ^ hash >> 29;
}

std::string_view NameTable::NameOf(const Named& each) const {
  const char* const text = texts[each.name / kTextSize].get() + each.name % kTextSize;
  return {text + 1, static_cast<unsigned char>(*text)};
}

// Returns the slot with the name, or the free one where it belongs.
std::size_t NameTable::SlotOf(std::string_view name) const {
  std::size_t slot = static_cast<std::size_t>(HashOf(name)) & (slots.size() - 1);
  while (slots[slot] != kFree && NameOf(named[slots[slot]]) != name) {
    slot = (slot + 1) & (slots.size() - 1);
  }
  return slot;
}

NameTable::Named* NameTable::Find(std::string_view name) {
  if (slots.empty()) return nullptr;
  const std::uint32_t found = slots[SlotOf(name)];
  return found != kFree ? &named[found] : nullptr;
}

NameTable::Named& NameTable::Insert(std::string_view name, bool& isNew) {
  if (named.size() * 4 >= slots.size() * 3) Grow();
  const std::size_t slot = SlotOf(name);
  isNew = slots[slot] == kFree;
  if (isNew) {
    slots[slot] = static_cast<std::uint32_t>(named.size());
    named.push_back({Store(name), 0, 0, {}});
  }
  return named[slots[slot]];
}

// REQUIRES: the name has at most 255 bytes, as all names of address books.
std::uint32_t NameTable::Store(std::string_view name) {
  if (texts.empty() || used + 1 + name.size() > kTextSize) {
    if (texts.size() == kMostTexts) throw std::length_error("the file has too many names");
    texts.push_back(std::make_unique<char[]>(kTextSize));
    used = 0;
  }
  char* const text = texts.back().get() + used;
  *text = static_cast<char>(name.size());
  std::ranges::copy(name, text + 1);
  const std::size_t position = (texts.size() - 1) * kTextSize + used;
  used += 1 + name.size();
  return static_cast<std::uint32_t>(position);
}

void NameTable::Grow() {
  slots.assign(std::max(slots.size() * 2, kFirstSlots), kFree);
  for (std::size_t i = 0; i < named.size(); ++i) {
    slots[SlotOf(NameOf(named[i]))] = static_cast<std::uint32_t>(i);
  }
}

}  // namespace quillctl
