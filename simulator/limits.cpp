#include "simulator/limits.h"

namespace quillbox {
namespace {

constexpr Limit kLimits[] = {
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

Limits WithoutLimits() {
  Limits limits;
  for (const Limit& each : kLimits) limits.Set(each.name, 0);
  return limits;
}

}  // namespace

std::span<const Limit> Limits::OfAppliance() {
  return kLimits;
}

const Limits& Limits::None() {
  static const Limits none = WithoutLimits();
  return none;
}

bool Limits::Set(std::string_view name, std::uint32_t most) {
  for (const Limit& each : kLimits) {
    if (each.name != name) continue;
    changed[each.name] = most;
    return true;
  }
  return false;
}

bool Limits::IsReached(BookKind kind, bool ofBooks, std::size_t count) const {
  for (const Limit& each : kLimits) {
    if (each.kind != kind || each.ofBooks != ofBooks) continue;
    const auto found = changed.find(each.name);
    const std::uint32_t most = found != changed.end() ? found->second : each.most;
    return most != 0 && count >= most;
  }
  return false;
}

}  // namespace quillbox
