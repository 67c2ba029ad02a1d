// The name of one book on the server.

#ifndef QUILLKIT_BRIDGE_AB_IDENT_H_
#define QUILLKIT_BRIDGE_AB_IDENT_H_

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "base/fixed_text.h"

namespace quillkit {

// The kind of a book. A value, not a mask: 768 is a separate kind.
enum class BookKind : std::uint32_t {
  kNone = 0,
  kEmail = 1,          // "EMAILAB"
  kFax = 2,            // "FAXAB"
  kUsers = 4,          // "USERSAB"
  kPrinters = 8,       // "PRINTERSAB"
  kPrivateEmail = 16,  // "PRIVATEAB", of the connected user
  kPublicList = 64,    // the list's own name; an empty name enumerates
  kPrivateList = 128,  // the same for the connected user's lists
  kTop = 256,          // "TOPAB", the soft keys
  kKeyItems = 512,     // the soft key's name
  kFaxList = 768,      // the list's own name; an empty name enumerates
  kLog = 1024,         // "LOGAB"
  kModels = 2048,      // "MODELAB", the printer models
};

inline constexpr std::string_view kEmailBook = "EMAILAB";
inline constexpr std::string_view kFaxBook = "FAXAB";
inline constexpr std::string_view kUsersBook = "USERSAB";
inline constexpr std::string_view kPrintersBook = "PRINTERSAB";
inline constexpr std::string_view kPrivateBook = "PRIVATEAB";
inline constexpr std::string_view kTopBook = "TOPAB";
inline constexpr std::string_view kLogBook = "LOGAB";
inline constexpr std::string_view kModelsBook = "MODELAB";

struct ABIdent {
  BookKind kind = BookKind::kNone;
  FixedText<32> name;

  ABIdent() = default;
  ABIdent(BookKind bookKind, std::string_view bookName) : kind(bookKind), name(bookName) {}
  ABIdent(const ABIdent&) = default;

  // Copies only the text of the name. The kind, and the bytes after the NUL, stay unchanged.
  ABIdent& operator=(const ABIdent& other) {
    if (this != &other) name.Assign(other.name.View());
    return *this;
  }

  // Returns 1, or 0 and no change for a name of 32 or more characters.
  int SetName(std::string_view text) { return name.Set(text); }

  // Ends the name inside its field. Call it for rows from a server.
  void Terminate() { name.Terminate(); }

  // Stores the kind unless it is null or 0. Always returns 0.
  int SetKind(const BookKind* newKind) {
    if (newKind != nullptr && *newKind != BookKind::kNone) kind = *newKind;
    return 0;
  }

  friend bool operator==(const ABIdent& a, const ABIdent& b) {
    return a.kind == b.kind && a.name == b.name;
  }
};

static_assert(sizeof(ABIdent) == 36);
static_assert(offsetof(ABIdent, kind) == 0 && offsetof(ABIdent, name) == 4);

}  // namespace quillkit

#endif  // QUILLKIT_BRIDGE_AB_IDENT_H_
