#include "simulator/limits.h"

namespace quillbox {
namespace {

struct Limit {
  std::string_view name;
  BookKind kind = BookKind::kNone;
  bool ofBooks = false;  // of the number of books instead of the entries of each book
  std::uint32_t most = 0;
};

// A name has a row for each kind of book that it limits.
constexpr Limit kLimits[Limits::kCount] = {
    {"keys", BookKind::kTop, false, 11},
    {"items", BookKind::kKeyItems, false, 512},
    {"email", BookKind::kEmail, false, 200'000},
    {"fax", BookKind::kFax, false, 2'048},
    {"accounts", BookKind::kUsers, false, 4'096},
    {"printers", BookKind::kPrinters, false, 256},
    {"models", BookKind::kModels, false, 16},
    {"lists", BookKind::kPublicList, true, 512},
    {"lists", BookKind::kFaxList, true, 512},
    {"members", BookKind::kPublicList, false, 512},
    {"members", BookKind::kPrivateList, false, 512},
    {"members", BookKind::kFaxList, false, 512},
    {"private-lists", BookKind::kPrivateList, true, 100},
    {"private-entries", BookKind::kPrivateEmail, false, 2'000},
};

}  // namespace

Limits::Limits() {
  for (std::size_t i = 0; i < kCount; ++i) most[i] = kLimits[i].most;
}

bool Limits::Set(std::string_view name, std::uint32_t number) {
  bool isKnown = false;
  for (std::size_t i = 0; i < kCount; ++i) {
    if (kLimits[i].name != name) continue;
    most[i] = number;
    isKnown = true;
  }
  return isKnown;
}

bool Limits::IsReached(BookKind kind, bool ofBooks, std::size_t count) const {
  for (std::size_t i = 0; i < kCount; ++i) {
    if (kLimits[i].kind == kind && kLimits[i].ofBooks == ofBooks) {
      return most[i] != 0 && count >= most[i];
    }
  }
  return false;
}

}  // namespace quillbox
