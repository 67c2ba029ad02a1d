// One account with what it has only in memory: the book it came from.

#ifndef QUILLKIT_BOOKS_USER_RECORD_H_
#define QUILLKIT_BOOKS_USER_RECORD_H_

#include <cstdint>
#include <string_view>

#include "bridge/user_entry.h"

namespace quillkit {

class CUserAB;

class CUserRecord : public CUserEntry {
 public:
  // Stores `newOwner`, which must outlive the record or be null for the session's own record, and
  // then does CUserEntry::Set, whose result it gives.
  int SetFrom(CUserAB* newOwner, std::string_view newName, std::string_view newPassword,
              std::string_view newThird, std::string_view newFourth, const std::uint32_t* newFlags,
              const std::uint32_t* newNibbles);

  CUserAB* Owner() const { return owner; }

 private:
  CUserAB* owner = nullptr;
};

}  // namespace quillkit

#endif  // QUILLKIT_BOOKS_USER_RECORD_H_
