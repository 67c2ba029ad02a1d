// A second handle on an e-mail book, for a caller that needs its own browsing position: it owns a
// book of the same appliance and view mode.
//
// The load mode selects which half it has: 0 both, 1 the lists, 2 the entries. The operations of
// the other half make no server call and return null or -1, or 0 for FindFirstList and
// FindNextList. So do all operations of a handle that is not attached.

#ifndef QUILLKIT_BOOKS_EMAIL_AB_HANDLE_H_
#define QUILLKIT_BOOKS_EMAIL_AB_HANDLE_H_

#include <cstdint>
#include <memory>
#include <string_view>

#include "books/email_ab.h"

namespace quillkit {

class CEmailABHandle {
 public:
  CEmailABHandle() = default;
  ~CEmailABHandle() = default;  // deletes the book
  CEmailABHandle(const CEmailABHandle&) = delete;
  CEmailABHandle& operator=(const CEmailABHandle&) = delete;

  // Replaces the book by a new one, with the scanner and view mode of `source`. Returns the result
  // of the three-argument CEmailAB::Attach; or 0 and no change for a null source. The scanner must
  // outlive the handle; `source` need not. Server calls: those of CEmailAB::Attach.
  int Attach(const CEmailAB* source, std::int32_t loadMode);

  std::int32_t Mode() const { return mode; }

  // Returns null before Attach. The handle owns the book.
  CEmailAB* Book() const { return book.get(); }

  // --- Entries: as CEmailAB ---

  CEmailEntry* First() { return EntryBook().First(); }
  CEmailEntry* Last() { return EntryBook().Last(); }
  CEmailEntry* Next() { return EntryBook().Next(); }
  CEmailEntry* Prev() { return EntryBook().Prev(); }
  CEmailEntry* GetAt(std::int32_t index) { return EntryBook().GetAt(index); }
  CEmailEntry* Find(std::string_view key, std::int32_t flag) { return EntryBook().Find(key, flag); }
  CEmailEntry* FindLetter(char letter) { return EntryBook().FindLetter(letter); }
  CEmailEntry* FindNext(std::int32_t exact) { return EntryBook().FindNext(exact); }
  CEmailEntry* FindPrev(std::int32_t exact) { return EntryBook().FindPrev(exact); }
  CEmailEntry* FindPrefix(std::string_view key) { return EntryBook().FindPrefix(key); }
  CEmailEntry* FindNextPrefix() { return EntryBook().FindNextPrefix(); }
  Status EntryCount(std::uint32_t* count) const { return EntryBook().EntryCount(count); }

  // --- Lists: as CEmailAB. The hit of a search is Book()->FoundList(). ---

  Status ServerListCount(std::uint32_t* count) const { return ListBook().ServerListCount(count); }
  Status ServerListSize(std::string_view list, std::uint32_t* count) const {
    return ListBook().ServerListSize(list, count);
  }
  CPubEmailDL* FindList(std::string_view name) const { return ListBook().FindList(name); }
  int FindFirstList(std::string_view pattern, std::int32_t exact) {
    return ListBook().FindFirstList(pattern, exact);
  }
  int FindNextList(std::int32_t exact) { return ListBook().FindNextList(exact); }

 private:
  // Return the book if the handle has this half, otherwise one that was never attached.
  CEmailAB& EntryBook() const;
  CEmailAB& ListBook() const;

  std::int32_t mode = 0;
  std::unique_ptr<CEmailAB> book;
};

}  // namespace quillkit

#endif  // QUILLKIT_BOOKS_EMAIL_AB_HANDLE_H_
