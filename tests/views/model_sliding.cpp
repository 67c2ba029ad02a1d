#include "tests/views/model_views.h"

namespace quillkit {
namespace {

std::string NameIn(const CEmailEntry& entry) {
  return std::string(entry.name.View());
}

void TakeAddress(CEmailEntry* held, const CEmailEntry& entry) {
  held->address = entry.address;
  held->flags = 0;
}

}  // namespace

std::string ModelSliding::State() const {
  const char* name = current == &low    ? "low"
                     : current == &mid  ? "mid"
                     : current == &high ? "high"
                                        : "-";
  std::string text = std::string(name) + " " + std::to_string(index);
  for (const Entries* each : {&low, &mid, &high}) {
    text += " " + Shown(each->data(), static_cast<std::int32_t>(each->size()));
  }
  return text;
}

CEmailEntry* ModelSliding::Stand(Entries* page, std::int32_t newIndex) {
  current = page;
  index = newIndex;
  return index >= 0 && index < std::ssize(*page) ? &page->at(static_cast<std::size_t>(index))
                                                 : nullptr;
}

CEmailEntry* ModelSliding::StandLast(Entries* page) {
  return Stand(page, page->empty() ? 0 : static_cast<std::int32_t>(page->size()) - 1);
}

bool ModelSliding::LoadUp(std::string key, std::string filter) {
  Reset();
  low = book->ReadOn(key, filter, size).entries;
  if (low.empty()) return true;
  mid = book->ReadOn(NameIn(low.back()), filter, size).entries;
  if (mid.empty()) return true;
  const auto last = book->ReadOn(NameIn(mid.back()), filter, size);
  high = last.entries;
  return IsGood(last.status);
}

bool ModelSliding::LoadDown(std::string key) {
  Reset();
  high = book->ReadRun(key, "", 0, size, 0).entries;
  if (high.empty()) return true;
  mid = book->ReadRun(NameIn(high.front()), "", 0, size, 0).entries;
  if (mid.empty()) return true;
  const auto last = book->ReadRun(NameIn(mid.front()), "", 0, size, 0);
  low = last.entries;
  return IsGood(last.status);
}

bool ModelSliding::LoadAround(std::string key, bool* endsAtKey) {
  Reset();
  *endsAtKey = true;
  ModelBook::Read last;
  mid = book->ReadOn(key, "", size).entries;
  if (!mid.empty()) {
    low = book->ReadRun(NameIn(mid.front()), "", 0, size, 0).entries;
    last = book->ReadOn(NameIn(mid.back()), "", size);
    high = last.entries;
    return IsGood(last.status);
  }
  low = book->ReadRun(key, "", 0, size, 0).entries;
  if (!low.empty()) {
    *endsAtKey = false;
    last = book->ReadOn(NameIn(low.back()), "", size);
    mid = last.entries;
    return IsGood(last.status);
  }
  last = book->ReadOn("", "", size);
  low = last.entries;
  return IsGood(last.status);
}

const CEmailEntry* ModelSliding::First() {
  return LoadUp("", "") ? Stand(&low, 0) : nullptr;
}

const CEmailEntry* ModelSliding::Last() {
  std::uint32_t count = 0;
  if (book->Size(&count) != 0 || count == 0) return nullptr;
  return GetAt(static_cast<std::int32_t>(count) - 1);
}

const CEmailEntry* ModelSliding::Next() {
  if (low.empty() && mid.empty() && high.empty()) return nullptr;
  if (current == nullptr || current->empty()) {
    index = 0;
    return nullptr;
  }
  ++index;
  if (index >= std::ssize(*current)) {
    if (current == &low) return Stand(&mid, 0);
    if (current == &mid) return Stand(&high, 0);
    return LoadUp(NameIn(high.back()), "") ? Stand(&low, 0) : nullptr;
  }
  return Stand(current, index);
}

const CEmailEntry* ModelSliding::Prev() {
  if (current == nullptr || current->empty()) {
    index = 0;
    return nullptr;
  }
  const CEmailEntry* from = Stand(current, index);
  const std::string name = from != nullptr ? NameIn(*from) : "";
  --index;
  if (index >= 0) return Stand(current, index);
  if (current == &high) return StandLast(mid.empty() ? &low : &mid);
  if (current == &mid) return StandLast(&low);
  if (!LoadDown(name)) return nullptr;
  return high.empty() ? Stand(&mid, 0) : StandLast(&high);
}

const CEmailEntry* ModelSliding::GetAt(std::int32_t at) {
  std::uint32_t count = 0;
  if (book->Size(&count) != 0 || at < 0 || static_cast<std::uint32_t>(at) >= count) return nullptr;
  const auto here = [this] { return current != nullptr ? Stand(current, index) : nullptr; };
  const Status status = LoadCensus();
  if (status != 0) return IsGood(status) ? here() : nullptr;
  std::int32_t before = 0;
  const int row = RowOf(at, &before);
  if (row < 0) return here();
  const std::string filter = LetterText(census->at(static_cast<std::size_t>(row)).letter);
  const auto named = book->ReadRun("", filter, at - before, 1, 1);
  if (named.status != 0 && named.status != 21) return named.status == 4 ? here() : nullptr;
  bool endsAtKey = false;
  const std::string name = named.entries.empty() ? "" : NameIn(named.entries.front());
  if (!LoadAround(name, &endsAtKey)) return nullptr;
  return endsAtKey ? StandLast(&low) : Stand(&mid, 0);
}

const CEmailEntry* ModelSliding::FindLetter(char letter) {
  index = -1;
  if (!LoadUp("", LetterText(letter)) || low.empty()) return nullptr;
  return Stand(&low, 0);
}

const CEmailEntry* ModelSliding::Find(std::string_view key, std::int32_t flag) {
  if (flag == 1) Reset();
  return Seek(key, 1);
}

CEmailEntry* ModelSliding::Search(std::string_view key, std::int32_t exact) {
  for (Entries* page : {&low, &mid, &high}) {
    if (page->empty()) continue;
    const int found = Locate(*page, key, exact);
    if (found >= 0) return Stand(page, found);
    if (found == -1) return nullptr;
  }
  return nullptr;
}

CEmailEntry* ModelSliding::Seek(std::string_view key, std::int32_t exact) {
  sought = key;
  CEmailEntry* found = Search(sought, exact);
  bool endsAtKey = false;
  if (found == nullptr && LoadAround(sought, &endsAtKey)) found = Search(sought, exact);
  return found;
}

Status ModelSliding::Remove(const CEmailEntry& entry, std::int32_t flag) {
  if (flag != 0) return book->Delete(entry.name.View());
  if (Find(entry.name.View(), 1) == nullptr) return 4;
  current->erase(current->begin() + index);
  return 0;
}

Status ModelSliding::Modify(const CEmailEntry& entry, std::int32_t flag) {
  const Status status = flag == 1 ? book->Modify(entry.name.View(), entry) : 0;
  if (status != 0) return status;
  CEmailEntry* found = Search(entry.name.View(), 1);
  if (found != nullptr) TakeAddress(found, entry);
  return 0;
}

Status ModelSliding::ModifyByKey(std::string_view key, const CEmailEntry& entry,
                                 std::int32_t flag) {
  const Status status = flag == 1 ? book->Modify(key, entry) : 0;
  if (status != 0) return status;
  CEmailEntry* found = Search(entry.name.View(), 1);
  if (found != nullptr) found->SetName(key);
  return 0;
}

std::int32_t ModelSliding::SetPageSize(std::int32_t newSize) {
  if (newSize <= 0) return 0;
  for (Entries* page : {&low, &mid, &high}) page->assign(static_cast<std::size_t>(newSize), {});
  return newSize;
}

}  // namespace quillkit
