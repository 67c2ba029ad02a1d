#include "books/user_list.h"

#include <algorithm>

#include "base/archive.h"
#include "books/user_ab.h"
#include "bridge/the_agent.h"

namespace quillkit {
namespace {

// Returned for an index out of range.
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
  search.MoveTo(0);
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
  search.MoveTo(0);
}

Status CUserList::Load(std::string_view startKey, std::int32_t direction) {
  if (records.IsEmpty() || owner == nullptr) return kRefused;
  KeyRange range(startKey, {});
  auto count = static_cast<std::uint32_t>(records.count());
  const Status status = owner->Entries().Read(&range, records.data(), &count, direction);
  const bool isRead = status == kNoError || status == kMoreData;
  records.KeepDelivered(isRead ? static_cast<std::int32_t>(count) : 0, direction);
  if (!isRead) return status;
  if (count == 0) Clear();
  search.MoveTo(0);
  return status;
}

Status CUserList::SaveAll() {
  if (records.IsEmpty() || owner == nullptr) return kRefused;
  const auto count = static_cast<std::uint32_t>(records.count());
  return owner->Entries().ModifyEach(records.data(), &count);
}

auto CUserList::Names() const {
  return [this](std::int32_t index) { return records.At(index)->name.View(); };
}

std::int32_t CUserList::Find(const CUserEntry& record) {
  const std::int32_t hit = FindName(0, Count(), record.name.View(), true, Names());
  if (hit >= 0) search.MoveTo(hit);
  return hit;
}

std::int32_t CUserList::FindFirst(const std::string& searched, std::int32_t exact) {
  return search.FindFirst(Count(), searched, exact == 1, Names());
}

std::int32_t CUserList::FindNext(std::int32_t exact) {
  return search.FindNext(Count(), exact == 1, Names());
}

void CUserList::Serialize(Archive& archive) {
  auto count = static_cast<std::uint32_t>(records.count());
  archive.Exchange(count);
  if (!archive.IsStoring()) {
    search.MoveTo(0);
    if (!archive.Prepare(records, count)) return;
  }
  for (CUserEntry& each : records) each.Serialize(archive);
}

}  // namespace quillkit
