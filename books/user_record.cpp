#include "books/user_record.h"

namespace quillkit {

int CUserRecord::SetFrom(CUserAB* newOwner, std::string_view newName, std::string_view newPassword,
                         std::string_view newThird, std::string_view newFourth,
                         const std::uint32_t* newFlags, const std::uint32_t* newNibbles) {
  owner = newOwner;
  return Set(newName, newPassword, newThird, newFourth, newFlags, newNibbles);
}

}  // namespace quillkit
