#include "tests/views/model_views.h"

namespace quillkit {

std::string ModelLetter::State() const {
  return "row " + std::to_string(row) + " cursor " + std::to_string(cursor) + " " +
         Shown(page.data(), static_cast<std::int32_t>(page.size()));
}

bool ModelLetter::Fill(char letter, std::int32_t capacity) {
  const auto read = book->ReadOn("", LetterText(letter), capacity);
  page = read.entries;
  return IsGood(read.status);
}

bool ModelLetter::Load(int atRow) {
  const auto& letter = census->at(static_cast<std::size_t>(atRow));
  return Fill(letter.letter, letter.count);
}

const CEmailEntry* ModelLetter::First() {
  if (!HaveCensus() || census->empty() || !Load(0)) return nullptr;
  row = 0;
  if (page.empty()) return nullptr;
  cursor = 0;
  return &page.front();
}

const CEmailEntry* ModelLetter::FindLetter(char letter) {
  if (!HaveCensus()) return nullptr;
  for (int i = 0; i < std::ssize(*census); ++i) {
    if (census->at(static_cast<std::size_t>(i)).letter != letter) continue;
    row = i;
    if (!Load(i) || page.empty()) return nullptr;
    cursor = 0;
    return &page.front();
  }
  return nullptr;
}

const CEmailEntry* ModelLetter::Last() {
  if (page.empty() || !HaveCensus()) return nullptr;
  if (census->empty() || !Load(static_cast<int>(census->size()) - 1) || page.empty())
    return nullptr;
  cursor = static_cast<std::int32_t>(page.size()) - 1;
  return &page.back();
}

const CEmailEntry* ModelLetter::Next() {
  if (page.empty() || !HaveCensus()) return nullptr;
  ++cursor;
  if (cursor < std::ssize(page)) return &page[static_cast<std::size_t>(cursor)];
  ++row;
  if (row >= std::ssize(*census)) {
    row = static_cast<int>(census->size());
    cursor = 0;
    return nullptr;
  }
  if (!Load(row)) return nullptr;
  cursor = 0;
  return page.empty() ? nullptr : &page.front();
}

const CEmailEntry* ModelLetter::Prev() {
  if (page.empty()) return nullptr;
  --cursor;
  if (cursor >= 0) {
    return cursor < std::ssize(page) ? &page[static_cast<std::size_t>(cursor)] : nullptr;
  }
  cursor = 0;
  --row;
  if (row < 0) {
    row = 0;
    return nullptr;
  }
  if (!Load(row) || page.empty()) return nullptr;
  cursor = static_cast<std::int32_t>(page.size()) - 1;
  return &page.back();
}

const CEmailEntry* ModelLetter::GetAt(std::int32_t at) {
  std::uint32_t count = 0;
  if (page.empty() || book->Size(&count) != 0) return nullptr;
  if (at < 0 || static_cast<std::uint32_t>(at) >= count || !HaveCensus()) return nullptr;
  std::int32_t before = 0;
  const int atRow = RowOf(at, &before);
  if (atRow < 0) return nullptr;
  cursor = at - before;
  if (!Load(atRow)) return nullptr;
  if (page.empty()) {
    cursor = 0;
    return nullptr;
  }
  row = atRow;
  return cursor < std::ssize(page) ? &page[static_cast<std::size_t>(cursor)] : nullptr;
}

const CEmailEntry* ModelLetter::Find(std::string_view key, std::int32_t flag) {
  if (flag == 1) Reset();
  return Seek(key, 1);
}

const CEmailEntry* ModelLetter::Seek(std::string_view key, std::int32_t exact) {
  if (!HaveCensus()) return nullptr;
  sought = key;
  const char letter = sought.empty() ? '\0' : sought.front();
  const auto inPage = [&]() -> const CEmailEntry* {
    const int found = page.empty() ? -1 : Locate(page, sought, exact);
    if (found < 0) return nullptr;
    cursor = found;
    return &page[static_cast<std::size_t>(found)];
  };
  if (row < std::ssize(*census) && census->at(static_cast<std::size_t>(row)).letter == letter) {
    if (const CEmailEntry* found = inPage()) return found;
  }
  for (int i = 0; i < std::ssize(*census); ++i) {
    const auto& each = census->at(static_cast<std::size_t>(i));
    if (static_cast<signed char>(each.letter) < static_cast<signed char>(letter)) continue;
    if (!Fill(letter, each.count)) return nullptr;
    const CEmailEntry* found = inPage();
    if (found != nullptr) row = i;
    return found;
  }
  return nullptr;
}

// Nothing is ever removed; what can be seen is the search and the steps through its name.
Status ModelLetter::Remove(const CEmailEntry& entry, std::int32_t) {
  if (page.empty()) return 0;
  if (Find(entry.name.View(), 1) == nullptr) return -1;
  while (FindNext(1) != nullptr) {
  }
  return -1;
}

Status ModelLetter::Modify(const CEmailEntry& entry, std::int32_t flag) {
  if (page.empty()) return 0;
  const Status status = flag == 1 ? book->Modify(entry.name.View(), entry) : 0;
  if (status != 0) return status;
  const int found = Locate(page, entry.name.View(), 1);
  if (found >= 0) page[static_cast<std::size_t>(found)].flags = 0;
  return 0;
}

Status ModelLetter::ModifyByKey(std::string_view key, const CEmailEntry& entry, std::int32_t flag) {
  if (page.empty()) return 0;
  const Status status = flag == 1 ? book->Modify(key, entry) : 0;
  if (status != 0) return status;
  const int found = Locate(page, entry.name.View(), 1);
  if (found >= 0) page[static_cast<std::size_t>(found)].SetName(key);
  return 0;
}

}  // namespace quillkit
