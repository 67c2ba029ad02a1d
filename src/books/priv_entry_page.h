// The entries of a private book, all in memory: at most 2000, read by index and searched by name.
//
// Every change is sent to the server first. A plain change with `reload` then reads the whole list
// again; a local one updates it. Before Attach has set a book, every change except SendAll makes no
// server call and fails: it returns -1, or 0 for ModifyLocal and ModifyLocalByKey. Operations that
// list no server calls make no server call.

#ifndef QUILLKIT_BOOKS_PRIV_ENTRY_PAGE_H_
#define QUILLKIT_BOOKS_PRIV_ENTRY_PAGE_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "base/name_search.h"
#include "views/entry_page.h"

namespace quillkit {

class Archive;
class CPrivEmailAB;

// The most entries of a private book: the capacity of a complete read, and the limit of an
// addition.
inline constexpr std::int32_t MaxPrivateEntries = 2000;

class CPrivEntryPage : public CEntryPage {
 public:
  // Stores the book, which must outlive the page, and allocates the capacity. Does nothing for a
  // null book.
  void Attach(std::int32_t capacity, CPrivEmailAB* newBook);

  // Restores the state after construction, but keeps the book.
  void Reset();

  // Reads up to Count() entries, starting after `startKey`. Keeps what was delivered only if the
  // status is 0: any other, including 21 (the book has more), leaves no entries. Returns the
  // status; or -1 and makes no server call if Count() is 0 or without a book.
  // Server calls: IMSPReadAB.
  Status Load(std::string_view startKey, std::int32_t direction);

  // Returns whether the latest Load has ended with a read, even if that failed.
  bool IsLoaded() const { return loaded != 0; }

  // Search by name: the whole name if `exact` is 1, otherwise its beginning. Return the index or
  // -1. SearchNext continues as NameCursor does.
  std::int32_t SearchFirst(const std::string& key, std::int32_t exact);
  std::int32_t SearchNext(std::int32_t exact);
  std::int32_t Search(std::string_view key, std::int32_t start, std::int32_t exact) const;

  // Change or read one entry on the server. Return the status. If it is 0 and `reload` is set, they
  // read the list again and return the status of that read; Remove returns that of the deletion.
  // With 2000 entries Add returns 24, records nothing and makes no server call.
  // Server calls: IMSPCreateEntry, IMSPReadEntryProperties, IMSPModifyEntry (Modify and
  // ModifyByKey) or IMSPDeleteEntry; then IMSPReadAB if `reload` is set.
  Status Add(CEmailEntry* entry, std::int32_t reload);
  Status Read(CEmailEntry* entry, std::int32_t reload);
  Status Modify(CEmailEntry* entry, std::int32_t reload);
  Status ModifyByKey(const std::string& key, CEmailEntry* entry, std::int32_t reload);
  Status Remove(CEmailEntry* entry, std::int32_t reload);

  // Change the server and then the page. AddLocal appends the entry; it returns the new count, -1,
  // or 24 as Add. The Modify operations return 1 or 0. RemoveLocal returns the new count or -1.
  // They also fail if the changed entry is not in the page.
  // Server calls: IMSPCreateEntry, IMSPModifyEntry or IMSPDeleteEntry.
  std::int32_t AddLocal(CEmailEntry* entry);
  std::int32_t ModifyLocal(CEmailEntry* entry);
  std::int32_t ModifyLocalByKey(const std::string& key, CEmailEntry* entry);
  std::int32_t RemoveLocal(CEmailEntry* entry);

  // Creates every entry on the server in turn, even if earlier ones fail. Without a book they are
  // created in the session's own private book. Returns the last status, or 0 for an empty page.
  // Server calls: IMSPCreateEntry for each entry.
  Status SendAll();

  // The count and each entry. If the stream cannot hold that count, loading leaves no entries and
  // fails the archive.
  void Serialize(Archive& archive);

 private:
  auto Names() const;
  Status LoadAll();
  Status ReloadAfter(Status changed, std::int32_t reload);
  std::int32_t Overwrite(Status status, std::string_view key, const CEmailEntry& entry);

  CPrivEmailAB* privateBook = nullptr;
  NameCursor search{-1};
  std::uint8_t loaded = 0;
};

}  // namespace quillkit

#endif  // QUILLKIT_BOOKS_PRIV_ENTRY_PAGE_H_
