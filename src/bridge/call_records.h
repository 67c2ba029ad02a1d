// Further records of server calls, besides books, keys and entries.

#ifndef QUILLKIT_BRIDGE_CALL_RECORDS_H_
#define QUILLKIT_BRIDGE_CALL_RECORDS_H_

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "base/fixed_text.h"

namespace quillkit {

// The part of a book that a bulk read delivers.
struct KeyRange {
  FixedText<32> first;   // entries after this key (before it, reading backward); empty: all
  FixedText<32> filter;  // empty or "*": every entry; text and "*": names that begin with the text;
                         // in LOGAB the name of a user
  std::int32_t skip = 0;  // number of matching entries to skip first

  KeyRange() = default;
  KeyRange(std::string_view firstName, std::string_view filterText, std::int32_t skipCount = 0)
      : first(firstName), filter(filterText), skip(skipCount) {}
};

// One row of the letter census of a book.
struct PageBoundary {
  char letter = '\0';
  char reserved[3] = {};
  std::int32_t count = 0;  // entries whose names begin with `letter`

  void Blank() { *this = {}; }
};

// The credentials of a login.
struct LoginRecord {
  std::uint32_t address = 0;  // in the byte order of inet_addr
  FixedText<32> user;
  FixedText<16> password;

  void WipePassword() { password.Wipe(); }
};

// The operations of IMSPIOCtl in use.
enum class IOCtlCode : std::int32_t {
  kSetTimeout = 1,       // value in: milliseconds
  kGetTimeout = 2,       // value out: milliseconds
  kGetWakeupPeriod = 6,  // value out: milliseconds that the server allows between keep-alives
  kDatabaseCommand = 7,  // value 0; text in: the command
  kGetText = 12,         // text in: 400 bytes, the first NUL; text out: pointer to the reply
};

// The only record whose size depends on the platform: 12 bytes with 32-bit pointers.
struct IOCtlRecord {
  IOCtlCode code = IOCtlCode::kGetTimeout;
  std::uint32_t value = 0;
  char* text = nullptr;
};

// One row of the log book. The library does not interpret it.
struct LogRecord {
  char bytes[200] = {};
};

static_assert(sizeof(KeyRange) == 68);
static_assert(offsetof(KeyRange, first) == 0 && offsetof(KeyRange, filter) == 32 &&
              offsetof(KeyRange, skip) == 64);
static_assert(sizeof(PageBoundary) == 8);
static_assert(offsetof(PageBoundary, letter) == 0 && offsetof(PageBoundary, count) == 4);
static_assert(sizeof(LoginRecord) == 52);
static_assert(offsetof(LoginRecord, address) == 0 && offsetof(LoginRecord, user) == 4 &&
              offsetof(LoginRecord, password) == 36);
static_assert(sizeof(IOCtlRecord) == 8 + sizeof(char*));
static_assert(offsetof(IOCtlRecord, code) == 0 && offsetof(IOCtlRecord, value) == 4 &&
              offsetof(IOCtlRecord, text) == 8);
static_assert(sizeof(LogRecord) == 200);

}  // namespace quillkit

#endif  // QUILLKIT_BRIDGE_CALL_RECORDS_H_
