// The entries of an appliance's e-mail book, as a view reads and changes them on the server. The
// book itself (books/email_ab.h) derives from this class.
//
// Without a scanner every operation returns -1 and makes no server call, unless it says otherwise.

#ifndef QUILLKIT_VIEWS_ENTRY_SOURCE_H_
#define QUILLKIT_VIEWS_ENTRY_SOURCE_H_

#include <cstdint>
#include <string_view>

#include "appliance/scanner.h"
#include "base/root_object.h"

namespace quillkit {

// The most entries of an e-mail book.
inline constexpr std::int32_t MaxEmailEntries = 200'000;

class EntrySource : public RootObject {
 public:
  // A view calls these before and after the reads of one step. They do nothing here: a book that
  // threads share can lock in them.
  // CLetterEntryView::GetAt does not call EndAccess if the census ends before the index.
  virtual void BeginAccess() {}
  virtual void EndAccess() {}

  CScanner* Scanner() const { return scanner; }

  // Returns the scanner's agent, even if the scanner has no address; or null.
  CAgent* Agent() const { return scanner != nullptr ? scanner->RawAgent() : nullptr; }

  // The access to the entries.
  BookAccess<CEmailEntry> Entries() const { return Appliance().EmailEntries(); }

  // Stores the number of entries in `*count`. Returns the status. Server calls: IMSPSizeofAB.
  Status EntryCount(std::uint32_t* count) const { return Appliance().SizeofEmail(count); }

  // Reads the letter census into `table`, an array of `*count` rows; `*count` becomes the number
  // delivered. Returns the status, or -1 for a null table or a count of 0. Without a scanner it
  // asks TheAgent. Server calls: IMSPReadPageBoundaries.
  Status ReadBoundaries(PageBoundary* table, std::uint32_t* count) const;

  // Adds an entry. Returns the status; or 24, which is not recorded, if the book has 200,000
  // entries. A failed count is treated as 0. Server calls: IMSPSizeofAB, IMSPCreateEntry.
  Status AddEntry(CEmailEntry* entry) const;

  // One server call each, with its status: see BookAccess.
  Status DeleteEntry(const CEmailEntry* entry) const { return Entries().Delete(*entry); }
  Status ModifyEntry(CEmailEntry* entry) const { return Entries().Modify(entry); }
  Status RenameEntry(std::string_view oldName, CEmailEntry* entry) const {
    return Entries().Rename(oldName, entry);
  }
  Status ReadEntries(KeyRange* range, CEmailEntry* records, std::uint32_t* count,
                     std::int32_t direction) const {
    return Entries().Read(range, records, count, direction);
  }
  Status ListEntries(KeyRange* range, EntryKey* rows, std::uint32_t* count,
                     std::int32_t direction) const {
    return Entries().List(range, rows, count, direction);
  }

 protected:
  const CScanner& Appliance() const { return ScannerOrUnbound(scanner); }

  CScanner* scanner = nullptr;  // not owned
};

}  // namespace quillkit

#endif  // QUILLKIT_VIEWS_ENTRY_SOURCE_H_
