#include "books/user_list.h"

#include <algorithm>

#include "base/archive.h"
#include "base/name_search.h"
#include "books/user_ab.h"
#include "bridge/the_agent.h"

namespace quillkit {
namespace {

// Stands in for records that are absent.
const CUserEntry blankRecord;

}  // namespace

void CUserList::Init(std::int32_t capacity, CUserAB* newOwner) {
  if (newOwner == nullptr) return;
  owner = newOwner;
  Allocate(capacity);
}

bool CUserList::Shrink(std::int32_t count, std::int32_t direction) {
  if (count == 0) {
    Clear();
    return true;
  }
  return records.Shrink(count, direction);
}

const CUserEntry& CUserList::GetAt(std::int32_t index) const {
  const CUserEntry* record = records.At(index);
  return record != nullptr ? *record : blankRecord;
}

int CUserList::SetAt(std::int32_t index, const CUserEntry& record) {
  CUserEntry* slot = records.At(index);
  if (slot == nullptr) return 0;
  *slot = record;
  return 1;
}

int CUserList::RemoveAt(std::int32_t index) {
  if (!records.RemoveAt(index)) return 0;
  cursor = 0;
  if (records.IsEmpty()) records.Free();
  return 1;
}

std::int32_t CUserList::Append(const CUserEntry& record) {
  if (records.count() >= MaxUsers) {
    TheAgent.SetError(kBookFull);
    return 0;
  }
  Wiped<CUserEntry> copy;
  copy.Set(record.name.View(), record.password.View(), record.third.View(), record.fourth.View(),
           &record.flags, &record.nibbles);
  copy.tag = record.tag;
  return std::max(records.Append(copy), 0);
}

void CUserList::Clear() {
  records.Free();
  cursor = 0;
}

Status CUserList::Load(std::string_view startKey, std::int32_t direction) {
  if (records.IsEmpty() || owner == nullptr) return kRefused;
  KeyRange range(startKey, {});
  auto count = static_cast<std::uint32_t>(records.count());
  const Status status = owner->Entries().Read(&range, records.data(), &count, direction);
  if (status != kNoError && status != kMoreData) {
    records.Clear();
    return status;
  }
  Shrink(static_cast<std::int32_t>(count), direction);
  cursor = 0;
  return status;
}

Status CUserList::SaveAll() {
  if (records.IsEmpty() || owner == nullptr) return kRefused;
  const auto count = static_cast<std::uint32_t>(records.count());
  return owner->Entries().ModifyEach(records.data(), &count);
}

std::int32_t CUserList::Find(const CUserEntry& record) {
  const std::int32_t hit = IndexOf(record.name.View(), 0, 1);
  if (hit >= 0) cursor = hit;
  return hit;
}

std::int32_t CUserList::FindFirst(const std::string& searched, std::int32_t exact) {
  cursor = IndexOf(searched, 0, exact);
  if (cursor >= 0) pattern = searched;
  return cursor;
}

std::int32_t CUserList::FindNext(std::int32_t exact) {
  const std::int32_t hit = IndexOf(pattern, cursor + 1, exact);
  if (hit >= 0) cursor = hit;
  return hit;
}

std::int32_t CUserList::IndexOf(std::string_view name, std::int32_t start,
                                std::int32_t exact) const {
  return FindName(start, records.count(), name, exact == 1,
                  [&](std::int32_t i) { return records.At(i)->name.View(); });
}

void CUserList::Serialize(Archive& archive) {
  auto count = static_cast<std::uint32_t>(records.count());
  archive.Exchange(count);
  if (!archive.IsStoring()) {
    cursor = 0;
    if (!archive.Prepare(records, count)) return;
  }
  for (CUserEntry& each : records) each.Serialize(archive);
}

}  // namespace quillkit
