#include "tests/views/model_views.h"

#include <algorithm>

namespace quillkit {
namespace {

bool IsGood(Status status) {
  return status == 0 || status == 4 || status == 21;
}

std::string NameIn(const CEmailEntry& entry) {
  return std::string(entry.name.View());
}

std::string LetterText(char letter) {
  return {letter, '*'};
}

void TakeAddress(CEmailEntry* held, const CEmailEntry& entry) {
  held->address = entry.address;
  held->flags = 0;
}

}  // namespace

std::string Shown(const CEmailEntry* first, std::int32_t count) {
  std::string text = std::to_string(count) + "(";
  for (std::int32_t i = 0; i < count; ++i) {
    text += std::string(first[i].Name()) + "=" + first[i].Address() + ":" +
            std::to_string(first[i].flags) + " ";
  }
  return text + ")";
}

// --- What all share ---

Status ModelView::LoadCensus() {
  if (census) return kNoError;
  const ModelBook::Census read = book->ReadCensus();
  if (read.status == 0 || read.status == 21) census = read.letters;
  return read.status;
}

char ModelView::FirstLetter() {
  LoadCensus();
  return census && !census->empty() ? census->front().letter : '\0';
}

char ModelView::NextLetter(char letter) {
  LoadCensus();
  if (!census || census->empty()) return '\0';
  for (std::size_t i = 0; i + 1 < census->size(); ++i) {
    if (census->at(i).letter == letter) return census->at(i + 1).letter;
  }
  return census->back().letter;
}

std::int32_t ModelView::LetterStart(char letter) {
  LoadCensus();
  std::int32_t sum = 0;
  for (const auto& each : census.value_or(std::vector<ModelBook::Letter>())) {
    if (each.letter == letter) return sum;
    sum += each.count;
  }
  return -1;
}

std::int32_t ModelView::LetterOfIndex(std::int32_t index, char* letter) {
  LoadCensus();
  std::int32_t sum = 0;
  for (const auto& each : census.value_or(std::vector<ModelBook::Letter>())) {
    if (sum + each.count >= index) {
      *letter = each.letter;
      return sum;
    }
    sum += each.count;
  }
  return -1;
}

int ModelView::RowOf(std::int32_t index, std::int32_t* before) const {
  *before = 0;
  for (std::size_t i = 0; i < census->size(); ++i) {
    if (*before + census->at(i).count > index) return static_cast<int>(i);
    *before += census->at(i).count;
  }
  return -1;
}

const CEmailEntry* ModelView::IfMatches(const CEmailEntry* entry, std::int32_t exact) const {
  return entry != nullptr && ModelMatches(*entry, sought, exact) ? entry : nullptr;
}

int ModelView::Locate(const Entries& page, std::string_view key, std::int32_t exact) {
  if (ModelMatches(page.front(), key, exact)) return 0;
  if (page.front().name.View() > key) return -1;
  if (ModelMatches(page.back(), key, exact)) return static_cast<int>(page.size()) - 1;
  if (page.back().name.View() < key) return -2;
  for (std::size_t i = 0; i < page.size(); ++i) {
    if (ModelMatches(page[i], key, exact)) return static_cast<int>(i);
  }
  return -1;
}

// --- Sliding ---

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

// --- Letter ---

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

// --- Full ---

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
