#include "tests/views/model_book.h"

#include <algorithm>
#include <utility>

#include "simulator/status_codes.h"

namespace quillkit {
namespace {

// A key as it goes out: one that is too long as the empty one.
std::string_view Sent(std::string_view key) {
  return key.size() < 32 ? key : std::string_view();
}

std::string Noted(std::string_view key) {
  return key.empty() ? std::string("\"\"") : std::string(key);
}

}  // namespace

bool ModelMatches(const CEmailEntry& entry, std::string_view key, std::int32_t exact) {
  const std::string_view name = entry.name.View();
  return exact == 1 ? name == key : name.substr(0, key.size()) == key;
}

// Notes the call. Whether it is served; if not, `*status` is why.
bool ModelBook::Call(std::string text, Status* status) {
  calls_.push_back(std::move(text));
  if (failAfter_ < 0 || failAfter_-- > 0) return true;
  *status = failure_;
  return false;
}

void ModelBook::FailAfter(int calls, Status status) {
  failAfter_ = calls;
  failure_ = status;
}

std::vector<std::string> ModelBook::TakeCalls() {
  return std::exchange(calls_, {});
}

Entries::iterator ModelBook::Place(std::string_view name) {
  return std::find_if(entries.begin(), entries.end(),
                      [&](const CEmailEntry& each) { return each.name.View() >= name; });
}

ModelBook::Read ModelBook::ReadRun(std::string_view first, std::string_view pattern,
                                   std::int32_t skip, std::int32_t capacity,
                                   std::int32_t direction) {
  Read read;
  if (capacity <= 0) return {kRefused, {}};
  const std::string_view filter = pattern.substr(0, pattern.find('\0'));
  const std::string from(first.substr(0, 31));
  if (!Call("IMSPReadAB 1:EMAILAB [" + from + "|" + std::string(filter) + "|" +
                std::to_string(skip) + "] " + std::to_string(capacity) + " " +
                std::to_string(direction),
            &read.status)) {
    return read;
  }
  Entries matches;
  for (const CEmailEntry& each : entries) {
    const bool isLetter = filter.empty() || each.name.View().front() == filter.front();
    const bool isBehind =
        from.empty() || (direction == 1 ? each.name.View() > from : each.name.View() < from);
    if (isLetter && isBehind) matches.push_back(each);
  }
  const auto passed = std::min<std::ptrdiff_t>(skip, std::ssize(matches));
  matches.erase(matches.begin(), matches.begin() + passed);
  const auto surplus = std::ssize(matches) - capacity;
  read.status = matches.empty() ? kDataNotFound : surplus > 0 ? kMoreData : kNoError;
  if (surplus > 0) {
    direction == 1 ? matches.erase(matches.end() - surplus, matches.end())
                   : matches.erase(matches.begin(), matches.begin() + surplus);
  }
  read.entries = std::move(matches);
  return read;
}

Status ModelBook::Size(std::uint32_t* size) {
  Status status = kNoError;
  if (Call("IMSPSizeofAB 1:EMAILAB -", &status)) *size = static_cast<std::uint32_t>(entries.size());
  return status;
}

ModelBook::Census ModelBook::ReadCensus() {
  Census census;
  if (!Call("IMSPReadPageBoundaries 1:EMAILAB 128", &census.status)) return census;
  for (const CEmailEntry& each : entries) {
    const char letter = each.name.View().front();
    if (census.letters.empty() || census.letters.back().letter != letter) {
      if (census.letters.size() == 128) {
        census.status = kMoreData;
        break;
      }
      census.letters.push_back({letter, 0});
    }
    ++census.letters.back().count;
  }
  return census;
}

Status ModelBook::Create(const CEmailEntry& entry) {
  Status status = kNoError;
  if (!Call("IMSPCreateEntry 1:EMAILAB " + Noted(entry.Name()), &status)) return status;
  if (entry.name.IsEmpty()) return kInvalidField;
  const auto place = Place(entry.name.View());
  if (place != entries.end() && place->name == entry.name) return kNameConflict;
  entries.insert(place, entry);
  return kNoError;
}

Status ModelBook::Modify(std::string_view asked, const CEmailEntry& entry) {
  Status status = kNoError;
  const std::string_view key = Sent(asked);
  const std::string call = "IMSPModifyEntry 1:EMAILAB " + Noted(key) + " " + Noted(entry.Name());
  if (!Call(call, &status)) return status;
  const auto found = Place(key);
  if (found == entries.end() || found->name.View() != key) return kDataNotFound;
  if (entry.name.IsEmpty()) return kInvalidField;
  const auto taken = Place(entry.name.View());
  if (taken != entries.end() && taken->name == entry.name && taken != found) return kNameConflict;
  entries.erase(found);
  entries.insert(Place(entry.name.View()), entry);
  return kNoError;
}

Status ModelBook::Delete(std::string_view name) {
  Status status = kNoError;
  if (!Call("IMSPDeleteEntry 1:EMAILAB " + Noted(name), &status)) return status;
  const auto found = Place(name);
  if (found == entries.end() || found->name.View() != name) return kDataNotFound;
  entries.erase(found);
  return kNoError;
}

}  // namespace quillkit
