// A second handle on an e-mail book, for a caller that wants a browsing position of its own: a book
// of the same appliance and view mode.
//
// The load mode says which half it has: 0 both, 2 the entries, 1 the lists. The other half, and a
// handle that is not attached, answers null or -1, and the list walks 0 as always; it makes no
// call.

#ifndef QUILLKIT_BOOKS_EMAIL_AB_HANDLE_H_
#define QUILLKIT_BOOKS_EMAIL_AB_HANDLE_H_

#include <cstdint>
#include <memory>
#include <string_view>

#include "bridge/records.h"

namespace quillkit {

class CEmailAB;
class CPubEmailDL;

class CEmailABHandle {
 public:
  CEmailABHandle();
  ~CEmailABHandle();  // deletes the book
  CEmailABHandle(const CEmailABHandle&) = delete;
  CEmailABHandle& operator=(const CEmailABHandle&) = delete;

  // Replaces the book by a new one, opened by the three-argument CEmailAB::Attach with the scanner
  // and view mode of `source`: its result. The scanner must outlive the handle; `source` need not.
  // 0 and no change for a null source.
  int Attach(const CEmailAB* source, std::int32_t loadMode);

  std::int32_t Mode() const { return mode; }

  // Null before Attach. The handle owns it.
  CEmailAB* Book() const { return book.get(); }

  // --- Entries: as CEmailAB ---

  CEmailEntry* First();
  CEmailEntry* Last();
  CEmailEntry* Next();
  CEmailEntry* Prev();
  CEmailEntry* GetAt(std::int32_t index);
  CEmailEntry* Find(std::string_view key, std::int32_t flag);
  CEmailEntry* FindLetter(char letter);
  CEmailEntry* FindNext(std::int32_t exact);
  CEmailEntry* FindPrev(std::int32_t exact);
  CEmailEntry* FindPrefix(std::string_view key);
  CEmailEntry* FindNextPrefix();
  Status EntryCount(std::uint32_t* count) const;

  // --- Lists: as CEmailAB. What a walk found is its Book()'s FoundList(). ---

  Status ServerListCount(std::uint32_t* count) const;
  Status ServerListSize(std::string_view list, std::uint32_t* count) const;
  CPubEmailDL* FindList(std::string_view name) const;
  int FindFirstList(std::string_view pattern, std::int32_t exact);
  int FindNextList(std::int32_t exact);

 private:
  CEmailAB* EntryBook() const;
  CEmailAB* ListBook() const;

  std::int32_t mode = 0;
  std::unique_ptr<CEmailAB> book;
};

}  // namespace quillkit

#endif  // QUILLKIT_BOOKS_EMAIL_AB_HANDLE_H_
