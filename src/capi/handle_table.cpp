#include "capi/handle_table.h"

#include <new>

namespace quillkit::capi {
namespace {

constexpr unsigned kSlotShift = 32;
constexpr unsigned kKindShift = 56;
constexpr std::size_t kMaxSlots = std::size_t{1} << (kKindShift - kSlotShift);

std::size_t SlotOf(quill_handle handle) {
  return static_cast<std::size_t>(handle >> kSlotShift) % kMaxSlots;
}

}  // namespace

quill_handle HandleTable::FindOrAdd(HandleKind kind, void* object, quill_handle parent,
                                    bool isAppOwned) {
  if (const quill_handle known = HandleOf(object); known != 0) return known;
  if (firstFree == entries.size()) {
    if (entries.size() == kMaxSlots) throw std::bad_alloc();
    entries.emplace_back().parent = firstFree + 1;
  }
  slots.emplace(object, firstFree);
  const std::size_t slot = firstFree;
  HandleEntry& entry = entries[slot];
  firstFree = static_cast<std::size_t>(entry.parent);
  entry.object = object;
  entry.kind = kind;
  entry.isAppOwned = isAppOwned;
  entry.parent = parent;
  return HandleAt(slot);
}

const HandleEntry* HandleTable::Find(quill_handle handle, HandleKind kind,
                                     std::int32_t* fault) const {
  const std::size_t slot = SlotOf(handle);
  const auto generation = static_cast<std::uint32_t>(handle);
  *fault = handle == 0 ? QUILL_E_NULL : QUILL_E_FOREIGN;
  if (slot >= entries.size() || static_cast<HandleKind>(handle >> kKindShift) != kind) {
    return nullptr;
  }
  const HandleEntry& entry = entries[slot];
  if (generation != 0 && generation < entry.generation) *fault = QUILL_E_STALE;
  const bool isLive = entry.object != nullptr && entry.kind == kind;
  if (!isLive || generation != entry.generation) return nullptr;
  *fault = 0;
  return &entry;
}

bool HandleTable::IsLive(quill_handle handle) const {
  std::int32_t fault = 0;
  return Find(handle, static_cast<HandleKind>(handle >> kKindShift), &fault) != nullptr;
}

quill_handle HandleTable::HandleOf(const void* object) const {
  const auto found = slots.find(object);
  return found != slots.end() ? HandleAt(found->second) : 0;
}

bool HandleTable::IsChild(const void* object, const void* parent) const {
  const auto found = slots.find(object);
  return found != slots.end() && entries[found->second].parent == HandleOf(parent);
}

void HandleTable::End(const void* object) {
  const auto found = slots.find(object);
  if (found != slots.end()) EndAt(found->second);
}

void HandleTable::EndBelow(const void* object) {
  if (const quill_handle parent = HandleOf(object); parent != 0) EndChildren(parent);
}

void HandleTable::EndChildren(quill_handle parent) {
  for (std::size_t slot = 0; slot < entries.size(); ++slot) {
    const HandleEntry& entry = entries[slot];
    if (entry.object != nullptr && !entry.isAppOwned && entry.parent == parent) EndAt(slot);
  }
}

void HandleTable::EndAll(HandleKind kind) {
  for (std::size_t slot = 0; slot < entries.size(); ++slot) {
    if (entries[slot].object != nullptr && entries[slot].kind == kind) EndAt(slot);
  }
}

quill_handle HandleTable::HandleAt(std::size_t slot) const {
  const HandleEntry& entry = entries[slot];
  return static_cast<quill_handle>(entry.kind) << kKindShift |
         static_cast<quill_handle>(slot) << kSlotShift | entry.generation;
}

void HandleTable::EndAt(std::size_t slot) {
  HandleEntry& entry = entries[slot];
  const quill_handle ended = HandleAt(slot);
  slots.erase(entry.object);
  entry.object = nullptr;
  // A slot that has used up its generations is not used again.
  if (++entry.generation != UINT32_MAX) {
    entry.parent = firstFree;
    firstFree = slot;
  }
  if (entry.kind < HandleKind::kItem) EndChildren(ended);
}

// Never destroyed: threads may still make calls while the process ends.
HandleTable& Handles() {
  static auto* const table = new HandleTable;
  return *table;
}

}  // namespace quillkit::capi
