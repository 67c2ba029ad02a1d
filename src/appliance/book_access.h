// The operations on the entries of one book on the server.
//
// A BookAccess is a temporary object that holds only the agent and the name of the book. Each
// operation makes one server call (ModifyEach one for each record) and returns its status
// unchanged. With 21 ("More Data Available than request") or 4 ("Data Not Found"), the buffer may
// contain records; the caller decides whether to use them. Without an agent, every operation
// returns -1 and makes no server call.
//
// Each call sends copies of the book, the key and the record. If the server overwrites them, the
// objects of the caller and the arguments of the next call stay unchanged. In delivered records and
// rows, each text ends inside its field, so it may be read as a C string.
//
// The first field of a record is its name, and its key in the book. A name of a book or entry that
// is too long for its field is sent as the empty name: truncated, it could be the name of another.

#ifndef QUILLKIT_APPLIANCE_BOOK_ACCESS_H_
#define QUILLKIT_APPLIANCE_BOOK_ACCESS_H_

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <type_traits>
#include <utility>

#include "base/entry_block.h"
#include "base/secret.h"
#include "bridge/agent.h"
#include "bridge/records.h"

namespace quillkit {

// Calls an operation of `agent` and returns its status. Null: returns -1.
template <class... Parameters, class... Arguments>
Status CallAgent(CAgent* agent, Status (CAgent::*operation)(Parameters...),
                 Arguments&&... arguments) {
  return agent != nullptr ? (agent->*operation)(std::forward<Arguments>(arguments)...) : kRefused;
}

// Returns whether the count of a bulk read is not null and not 0.
inline bool HasCapacity(const std::uint32_t* count) {
  return count != nullptr && *count != 0;
}

// Ends the texts of the `delivered` rows in a buffer of `capacity` rows. They are at its front, or
// at its end if it was read backward (direction 0). Does nothing for a null buffer.
template <class Row>
void TerminateDelivered(Row* rows, std::uint32_t capacity, std::uint32_t delivered,
                        std::int32_t direction) {
  if (rows == nullptr) return;
  Row* first = rows + (direction == 1 ? 0 : capacity - delivered);
  std::for_each(first, first + delivered, [](Row& each) { each.Terminate(); });
}

// Keeps the records that a read into the block delivered; see EntryBlock::KeepDelivered. If a
// failed read leaves the count and the record farthest from the key unchanged, it has delivered
// nothing, and all records become blank.
template <class Record>
void KeepReply(EntryBlock<Record>& block, Status status, std::uint32_t count,
               std::int32_t direction) {
  const auto delivered = static_cast<std::int32_t>(count);
  const bool isRead = status == kNoError || status == kMoreData;
  const Record* farthest = block.At(direction == 1 ? block.count() - 1 : 0);
  const bool isUntouched =
      !isRead && delivered == block.count() && farthest != nullptr && farthest->name.IsEmpty();
  block.KeepDelivered(delivered, direction);
  if (isUntouched) block.BlankAll();
}

template <class Entry>
class BookAccess {
  static_assert(std::is_standard_layout_v<Entry>, "the name is reached as the first field");

 public:
  using Record = Entry;

  BookAccess(CAgent* newAgent, BookKind kind, std::string_view name)
      : agent(newAgent), book(kind, {}) {
    book.SetName(name);
  }
  BookAccess(const BookAccess&) = default;
  BookAccess& operator=(const BookAccess&) = delete;  // a book's kind is not assignable

  CAgent* Agent() const { return agent; }

  // Reads up to `*count` records of the range into `records` and stores the number delivered in
  // `*count`. Returns -1 and makes no server call for a null buffer or a count of 0.
  // Server calls: IMSPReadAB.
  Status Read(KeyRange* range, Entry* records, std::uint32_t* count, std::int32_t direction) {
    if (agent == nullptr || records == nullptr || !HasCapacity(count)) return kRefused;
    return ReadRange(range, records, count, direction);
  }

  // Like Read, but a delivered text that fills its field has no NUL: call Terminate() of the record
  // before anything reads it. Server calls: IMSPReadAB.
  Status ReadUnterminated(KeyRange* range, Entry* records, std::uint32_t* count,
                          std::int32_t direction) {
    if (records == nullptr || !HasCapacity(count)) return kRefused;
    return Call(&CAgent::IMSPReadAB, range, records, count, direction);
  }

  // Reads the whole book: a null range, direction 1. A null buffer or a count of 0 is sent
  // unchanged. Server calls: IMSPReadAB.
  Status ReadAll(Entry* records, std::uint32_t* count) {
    if (agent == nullptr || count == nullptr) return kRefused;
    return ReadRange(nullptr, records, count, 1);
  }

  // Like Read, but only the names. Server calls: IMSPListABEntries.
  Status List(KeyRange* range, EntryKey* rows, std::uint32_t* count, std::int32_t direction) {
    if (rows == nullptr) return kRefused;
    return ListRange(range, rows, count, direction);
  }

  // Lists up to `*count` names from the beginning, with the filter "*". Returns -1 and makes no
  // server call for a count of 0; the buffer is not tested. Server calls: IMSPListABEntries.
  Status ListNames(EntryKey* rows, std::uint32_t* count) {
    KeyRange range({}, "*");
    return ListRange(&range, rows, count, 1);
  }

  // Server calls: IMSPCreateEntry.
  Status Create(Entry* entry) {
    if (agent == nullptr) return kRefused;
    Wiped<Entry> sent(*entry);
    return Call(&CAgent::IMSPCreateEntry, &sent);
  }

  // Reads the entry with the name of the record into the record.
  // Server calls: IMSPReadEntryProperties.
  Status ReadOne(Entry* entry) {
    if (agent == nullptr) return kRefused;
    EntryKey key = KeyOf(*entry);
    const Status status = Call(&CAgent::IMSPReadEntryProperties, &key, entry);
    entry->Terminate();
    return status;
  }

  // Replaces the entry with the name of the record. Server calls: IMSPModifyEntry.
  Status Modify(Entry* entry) { return ModifyByKey(KeyOf(*entry), entry); }

  // Replaces the entry `oldName` by the record, which has the new name.
  // Server calls: IMSPModifyEntry.
  Status Rename(std::string_view oldName, Entry* entry) {
    return ModifyByKey(EntryKey::Of(oldName), entry);
  }

  // Delete the entry with the name of the record, or with this name.
  // Server calls: IMSPDeleteEntry.
  Status Delete(const Entry& entry) { return DeleteByKey(KeyOf(entry)); }
  Status Delete(std::string_view name) { return DeleteByKey(EntryKey::Of(name)); }

  // Replaces the entry with the name of each record in turn. Stops at the first status that is not
  // 0 and returns it; the records sent before remain. Otherwise returns 0. Reads `*count` before
  // each step.
  // Server calls: IMSPModifyEntry for each record.
  Status ModifyEach(Entry* entries, const std::uint32_t* count) {
    if (agent == nullptr) return kRefused;
    for (std::uint32_t i = 0; i < *count; ++i) {
      const Status status = Modify(&entries[i]);
      if (status != kNoError) return status;
    }
    return kNoError;
  }

  // Server calls: IMSPCreateAB, IMSPDeleteAB; IMSPClearAB and IMSPSizeofAB with a null filter.
  Status CreateBook() { return Call(&CAgent::IMSPCreateAB); }
  Status DeleteBook() { return Call(&CAgent::IMSPDeleteAB); }
  Status ClearBook() { return Call(&CAgent::IMSPClearAB, nullptr); }
  Status Size(std::uint32_t* count) { return Call(&CAgent::IMSPSizeofAB, count, nullptr); }

 private:
  // Makes every server call, with a copy of the book.
  template <class... Parameters, class... Arguments>
  Status Call(Status (CAgent::*call)(ABIdent*, Parameters...), Arguments... arguments) {
    ABIdent sent = book;
    return CallAgent(agent, call, &sent, arguments...);
  }

  static EntryKey KeyOf(const Entry& entry) {
    return EntryKey::Of(reinterpret_cast<const FixedText<32>&>(entry).View());
  }

  Status ReadRange(KeyRange* range, Entry* records, std::uint32_t* count, std::int32_t direction) {
    const std::uint32_t capacity = *count;
    const Status status = Call(&CAgent::IMSPReadAB, range, records, count, direction);
    TerminateDelivered(records, capacity, *count, direction);
    return status;
  }

  Status ListRange(KeyRange* range, EntryKey* rows, std::uint32_t* count, std::int32_t direction) {
    if (agent == nullptr || !HasCapacity(count)) return kRefused;
    const std::uint32_t capacity = *count;
    const Status status = Call(&CAgent::IMSPListABEntries, range, rows, count, direction);
    TerminateDelivered(rows, capacity, *count, direction);
    return status;
  }

  Status ModifyByKey(EntryKey key, Entry* entry) {
    if (agent == nullptr) return kRefused;
    Wiped<Entry> sent(*entry);
    return Call(&CAgent::IMSPModifyEntry, &key, &sent);
  }

  Status DeleteByKey(EntryKey key) { return Call(&CAgent::IMSPDeleteEntry, &key); }

  CAgent* agent;
  ABIdent book;
};

}  // namespace quillkit

#endif  // QUILLKIT_APPLIANCE_BOOK_ACCESS_H_
