// The entries of a private book, held whole: at most 2000, read by index and searched by name.
//
// Every change goes to the server through the book first. A plain change with `reload` then reads
// the whole list anew; a local one patches it. Before Attach has set a book, every change but
// SendAll makes no call and fails: -1, or 0 for ModifyLocal and ModifyLocalByKey.

#ifndef QUILLKIT_BOOKS_PRIV_ENTRY_PAGE_H_
#define QUILLKIT_BOOKS_PRIV_ENTRY_PAGE_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "views/entry_page.h"

namespace quillkit {

class Archive;
class CPrivEmailAB;

// The most entries of a private book: the capacity of a whole read, and the limit of an addition.
inline constexpr std::int32_t MaxPrivateEntries = 2000;

class CPrivEntryPage : public CEntryPage {
 public:
  // Stores the book, which must outlive the page, and allocates the capacity. A null book is
  // ignored.
  void Attach(std::int32_t capacity, CPrivEmailAB* newBook);

  // Puts the page back to how it was made, with its book.
  void Reset();

  // Reads as many entries as the page counts, from behind `startKey`: one IMSPReadAB. Only status 0
  // keeps what was delivered; any other, 21 (the book holds more) among them, leaves none and is
  // the result. -1 and no call for a page that counts none.
  Status Load(std::string_view startKey, std::int32_t direction);

  // Whether a load has been answered by the server, whatever it gave. Not so while one runs.
  bool IsLoaded() const { return loaded != 0; }

  // Search by name: the whole name where `exact` is 1, else as many characters as the key has. The
  // index or -1. SearchNext goes on behind the last hit, or at 0 behind a SearchFirst that missed,
  // with the key of the latest SearchFirst that hit.
  std::int32_t SearchFirst(const std::string& key, std::int32_t exact);
  std::int32_t SearchNext(std::int32_t exact);
  std::int32_t Search(std::string_view key, std::int32_t start, std::int32_t exact) const;

  // Change or read one entry on the server: its status; with `reload`, after a 0, that of reading
  // the list anew, which for Remove is ignored. Add gives 24, with nothing recorded and no call,
  // when the page holds 2000.
  Status Add(CEmailEntry* entry, std::int32_t reload);
  Status Read(CEmailEntry* entry, std::int32_t reload);
  Status Modify(CEmailEntry* entry, std::int32_t reload);
  Status ModifyByKey(const std::string& key, CEmailEntry* entry, std::int32_t reload);
  Status Remove(CEmailEntry* entry, std::int32_t reload);

  // Change the server and then the page. Add: the new count, -1, or 24 at 2000 as Add; the entry
  // goes to the end. Modify: 1 or 0. Remove: the new count or -1. A failure also when the server
  // changed an entry that the page lacks.
  std::int32_t AddLocal(CEmailEntry* entry);
  std::int32_t ModifyLocal(CEmailEntry* entry);
  std::int32_t ModifyLocalByKey(const std::string& key, CEmailEntry* entry);
  std::int32_t RemoveLocal(CEmailEntry* entry);

  // Creates every entry on the server in turn, whatever the earlier ones gave: the last status, or
  // 0 for an empty page. Without a book they go to the session's own private book.
  Status SendAll();

  // The count and each entry. A count that the stream cannot hold loads none and fails the archive.
  void Serialize(Archive& archive);

 private:
  Status Finish(Status status, std::int32_t reload);
  std::int32_t Overwrite(Status status, std::string_view key, const CEmailEntry& entry);

  CPrivEmailAB* privateBook = nullptr;
  std::string searchKey;
  std::int32_t searchIndex = -1;
  std::uint8_t loaded = 0;
};

}  // namespace quillkit

#endif  // QUILLKIT_BOOKS_PRIV_ENTRY_PAGE_H_
