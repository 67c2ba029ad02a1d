// One book on the server, as CScanner's access methods reach it: what kind and name it has, the
// record of its entries, and the server call that each operation ends in.
//
// A value that is made for a call or two and keeps no state. Every operation makes one server call,
// except ModifyEach, and returns its status as it is: 21 ("More Data Available than request") and 4
// ("Data Not Found") are the caller's to judge, who may have received records with either. Without
// an agent every operation gives -1 and makes no call.
//
// The book, the key and a record that is sent go out as copies: a server that writes into them
// changes nothing here, and not what the next call sends.
//
// Records and rows that a server delivered are ended inside their text fields, so that their texts
// may be read as C strings. A record's first field is its name, and its key in the book. The name
// of a book or an entry that is too long for its field goes out as the empty one: cut, it could be
// another's.

#ifndef QUILLKIT_APPLIANCE_BOOK_ACCESS_H_
#define QUILLKIT_APPLIANCE_BOOK_ACCESS_H_

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <type_traits>

#include "base/secret.h"
#include "bridge/agent.h"
#include "bridge/records.h"

namespace quillkit {

// Whether a bulk read may go out: there is a count, and it offers room.
inline bool OffersRoom(const std::uint32_t* count) {
  return count != nullptr && *count != 0;
}

// Ends the texts of the rows that came into a buffer of `capacity` rows: they stand at its front,
// or at its end when it was read back. A null buffer has none.
template <class Row>
void TerminateDelivered(Row* rows, std::uint32_t capacity, std::uint32_t delivered,
                        std::int32_t direction) {
  if (rows == nullptr) return;
  Row* first = rows + (direction == 1 ? 0 : capacity - delivered);
  std::for_each(first, first + delivered, [](Row& each) { each.Terminate(); });
}

template <class Entry>
class BookAccess {
  static_assert(std::is_standard_layout_v<Entry>, "the name is reached as the first field");

 public:
  BookAccess(CAgent* agent, BookKind kind, std::string_view name) : agent_(agent), book_(kind, {}) {
    book_.SetName(name);
  }
  BookAccess(const BookAccess&) = default;
  BookAccess& operator=(const BookAccess&) = delete;  // a book's kind is not assignable

  CAgent* Agent() const { return agent_; }

  // IMSPReadAB: up to `*count` records of the range into `records`; `*count` becomes the number
  // delivered. -1 also for a null buffer or a count of 0.
  Status Read(KeyRange* range, Entry* records, std::uint32_t* count, std::int32_t direction) {
    if (agent_ == nullptr || records == nullptr || !OffersRoom(count)) return kRefused;
    return ReadRange(range, records, count, direction);
  }

  // IMSPReadAB of the whole book: a null range, direction 1. A null buffer and a count of 0 go out.
  Status ReadAll(Entry* records, std::uint32_t* count) {
    if (agent_ == nullptr || count == nullptr) return kRefused;
    return ReadRange(nullptr, records, count, 1);
  }

  // IMSPListABEntries: as Read, for the names alone.
  Status List(KeyRange* range, EntryKey* rows, std::uint32_t* count, std::int32_t direction) {
    if (rows == nullptr) return kRefused;
    return ListRange(range, rows, count, direction);
  }

  // IMSPListABEntries from the beginning with the filter "*". -1 also for a count of 0; the buffer
  // is not tested.
  Status ListNames(EntryKey* rows, std::uint32_t* count) {
    KeyRange range({}, "*");
    return ListRange(&range, rows, count, 1);
  }

  // IMSPCreateEntry.
  Status Create(Entry* entry) {
    if (agent_ == nullptr) return kRefused;
    Wiped<Entry> sent(*entry);
    return Call(&CAgent::IMSPCreateEntry, &sent);
  }

  // IMSPReadEntryProperties of the entry that the record names, into the record.
  Status ReadOne(Entry* entry) {
    if (agent_ == nullptr) return kRefused;
    EntryKey key = KeyOf(*entry);
    const Status status = Call(&CAgent::IMSPReadEntryProperties, &key, entry);
    entry->Terminate();
    return status;
  }

  // IMSPModifyEntry of the entry that the record names.
  Status Modify(Entry* entry) { return ModifyByKey(KeyOf(*entry), entry); }

  // IMSPModifyEntry of the entry `oldName`; the record carries the new name.
  Status Rename(std::string_view oldName, Entry* entry) {
    return ModifyByKey(EntryKey::Of(oldName), entry);
  }

  // IMSPDeleteEntry of the entry that the record names, or of the name.
  Status Delete(const Entry& entry) { return DeleteByKey(KeyOf(entry)); }
  Status Delete(std::string_view name) { return DeleteByKey(EntryKey::Of(name)); }

  // IMSPModifyEntry of each record in turn, by its own name. The first status that is not 0 ends
  // the run and is the result: what was sent stays, the rest is not sent. `*count` is read anew at
  // each step.
  Status ModifyEach(Entry* entries, const std::uint32_t* count) {
    if (agent_ == nullptr) return kRefused;
    for (std::uint32_t i = 0; i < *count; ++i) {
      const Status status = Modify(&entries[i]);
      if (status != kNoError) return status;
    }
    return kNoError;
  }

  // IMSPCreateAB, IMSPDeleteAB; IMSPClearAB and IMSPSizeofAB with a null filter.
  Status CreateBook() { return Call(&CAgent::IMSPCreateAB); }
  Status DeleteBook() { return Call(&CAgent::IMSPDeleteAB); }
  Status ClearBook() { return Call(&CAgent::IMSPClearAB, nullptr); }
  Status Size(std::uint32_t* count) { return Call(&CAgent::IMSPSizeofAB, count, nullptr); }

 private:
  // The one way out: the call goes with a copy of the book.
  template <class... Parameters, class... Arguments>
  Status Call(Status (CAgent::*call)(ABIdent*, Parameters...), Arguments... arguments) {
    if (agent_ == nullptr) return kRefused;
    ABIdent sent = book_;
    return (agent_->*call)(&sent, arguments...);
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
    if (agent_ == nullptr || !OffersRoom(count)) return kRefused;
    const std::uint32_t capacity = *count;
    const Status status = Call(&CAgent::IMSPListABEntries, range, rows, count, direction);
    TerminateDelivered(rows, capacity, *count, direction);
    return status;
  }

  Status ModifyByKey(EntryKey key, Entry* entry) {
    if (agent_ == nullptr) return kRefused;
    Wiped<Entry> sent(*entry);
    return Call(&CAgent::IMSPModifyEntry, &key, &sent);
  }

  Status DeleteByKey(EntryKey key) { return Call(&CAgent::IMSPDeleteEntry, &key); }

  CAgent* agent_;
  ABIdent book_;
};

}  // namespace quillkit

#endif  // QUILLKIT_APPLIANCE_BOOK_ACCESS_H_
