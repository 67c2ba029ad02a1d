#include "tests/views/model_views.h"

namespace quillkit {

int ModelFull::Open() {
  const Status status = Load();
  return status == 0 || status == 4 ? 1 : 0;
}

std::string ModelFull::State() const {
  return "cursor " + std::to_string(cursor) + " " + Shown(held.data(), Count());
}

Status ModelFull::Load() {
  cursor = 0;
  const auto read = book->ReadOn("", "", 512);
  held = read.entries;
  return read.status;
}

const CEmailEntry* ModelFull::At(std::int32_t index) const {
  return index >= 0 && index < Count() ? &held[static_cast<std::size_t>(index)] : nullptr;
}

const CEmailEntry* ModelFull::First() {
  if (held.empty()) return nullptr;
  cursor = 0;
  return At(0);
}

const CEmailEntry* ModelFull::Next() {
  return cursor + 1 < Count() ? At(++cursor) : nullptr;
}

const CEmailEntry* ModelFull::Prev() {
  return !held.empty() && cursor - 1 >= 0 ? At(--cursor) : nullptr;
}

const CEmailEntry* ModelFull::FindLetter(char letter) {
  for (std::int32_t i = 0; i < Count(); ++i) {
    if (At(i)->Name()[0] != letter) continue;
    cursor = i;
    return At(i);
  }
  return Last();
}

const CEmailEntry* ModelFull::Find(std::string_view key, std::int32_t exact) {
  cursor = -1;
  const CEmailEntry* nearest = FindLetter(key.empty() ? '\0' : key.front());
  const std::int32_t found = IndexOf(key, exact != 0 ? 1 : 0);
  if (found < 0) return nearest;
  cursor = found;
  return At(found);
}

std::int32_t ModelFull::IndexOf(std::string_view name, std::int32_t exact) const {
  for (std::int32_t i = 0; i < Count(); ++i) {
    if (ModelMatches(*At(i), name, exact)) return i;
  }
  return -1;
}

// The book's own addition asks for the size first.
Status ModelFull::CreateInBook(const CEmailEntry& entry) {
  std::uint32_t count = 0;
  book->Size(&count);
  return book->Create(entry);
}

Status ModelFull::Add(const CEmailEntry& entry, std::int32_t reload) {
  return Count() >= 512 ? -1 : Then(CreateInBook(entry), reload);
}

Status ModelFull::Remove(const CEmailEntry& entry, std::int32_t reload) {
  return Then(book->Delete(entry.name.View()), reload);
}

Status ModelFull::Modify(const CEmailEntry& entry, std::int32_t reload) {
  return Then(book->Modify(entry.name.View(), entry), reload);
}

Status ModelFull::ModifyByKey(std::string_view key, const CEmailEntry& entry, std::int32_t reload) {
  return Then(book->Modify(key, entry), reload);
}

std::int32_t ModelFull::RemoveAt(std::int32_t index) {
  if (At(index) == nullptr) return -1;
  held.erase(held.begin() + index);
  return Count();
}

std::int32_t ModelFull::AddLocal(const CEmailEntry& entry) {
  if (Count() >= 512 || CreateInBook(entry) != 0) return -1;
  held.push_back(entry);
  return Count();
}

std::int32_t ModelFull::ModifyLocal(const CEmailEntry& entry) {
  return ModifyLocalByKey(entry.name.View(), entry);
}

std::int32_t ModelFull::ModifyLocalByKey(std::string_view key, const CEmailEntry& entry) {
  if (book->Modify(key, entry) != 0) return 0;
  const std::int32_t found = IndexOf(key, 1);
  if (found < 0) return 0;
  held[static_cast<std::size_t>(found)] = entry;
  return 1;
}

std::int32_t ModelFull::RemoveLocal(const CEmailEntry& entry) {
  return book->Delete(entry.name.View()) == 0 ? RemoveAt(IndexOf(entry.name.View(), 1)) : -1;
}

}  // namespace quillkit
