// A plain model of the server's e-mail book: what each read delivers, and what the journal of the
// simulated appliance then shows.

#ifndef QUILLKIT_TESTS_VIEWS_MODEL_BOOK_H_
#define QUILLKIT_TESTS_VIEWS_MODEL_BOOK_H_

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "bridge/records.h"
#include "simulator/status_codes.h"

namespace quillkit {

using Entries = std::vector<CEmailEntry>;

// Whether `name` is what `key` looks for.
inline bool ModelMatches(const CEmailEntry& entry, std::string_view key, std::int32_t exact) {
  const std::string_view name = entry.name.View();
  return exact == 1 ? name == key : name.substr(0, key.size()) == key;
}

class ModelBook {
 public:
  struct Read {
    Status status = kNoError;
    Entries entries;
  };
  struct Letter {
    char letter = '\0';
    std::int32_t count = 0;
  };
  struct Census {
    Status status = kNoError;
    std::vector<Letter> letters;
  };

  explicit ModelBook(Entries content) : entries(std::move(content)) {}

  // IMSPReadAB. A capacity that is not above 0 is refused without a call.
  Read ReadRun(std::string_view first, std::string_view pattern, std::int32_t skip,
               std::int32_t capacity, std::int32_t direction) {
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
  Read ReadOn(std::string_view first, std::string_view filter, std::int32_t capacity) {
    return ReadRun(first, filter, 0, capacity, 1);
  }

  Status Size(std::uint32_t* size) {
    Status status = kNoError;
    if (Call("IMSPSizeofAB 1:EMAILAB -", &status))
      *size = static_cast<std::uint32_t>(entries.size());
    return status;
  }
  Census ReadCensus() {
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
  Status Create(const CEmailEntry& entry) {
    Status status = kNoError;
    if (!Call("IMSPCreateEntry 1:EMAILAB " + Noted(entry.Name()), &status)) return status;
    if (entry.name.IsEmpty()) return kInvalidField;
    const auto place = Place(entry.name.View());
    if (place != entries.end() && place->name == entry.name) return kNameConflict;
    entries.insert(place, entry);
    return kNoError;
  }
  Status Modify(std::string_view asked, const CEmailEntry& entry) {
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
  Status Delete(std::string_view name) {
    Status status = kNoError;
    if (!Call("IMSPDeleteEntry 1:EMAILAB " + Noted(name), &status)) return status;
    const auto found = Place(name);
    if (found == entries.end() || found->name.View() != name) return kDataNotFound;
    entries.erase(found);
    return kNoError;
  }

  // Makes the call after `calls` others fail: its status, and nothing delivered.
  void FailAfter(int calls, Status status) {
    failAfter_ = calls;
    failure_ = status;
  }
  bool HasFault() const { return failAfter_ >= 0; }

  std::vector<std::string> TakeCalls() { return std::exchange(calls_, {}); }

  Entries entries;  // in the order of unsigned bytes

 private:
  // A key as it goes out: one that is too long as the empty one.
  static std::string_view Sent(std::string_view key) {
    return key.size() < 32 ? key : std::string_view();
  }
  static std::string Noted(std::string_view key) {
    return key.empty() ? std::string("\"\"") : std::string(key);
  }
  // Notes the call. Whether it is served; if not, `*status` is why.
  bool Call(std::string text, Status* status) {
    calls_.push_back(std::move(text));
    if (failAfter_ < 0 || failAfter_-- > 0) return true;
    *status = failure_;
    return false;
  }
  Entries::iterator Place(std::string_view name) {
    return std::find_if(entries.begin(), entries.end(),
                        [&](const CEmailEntry& each) { return each.name.View() >= name; });
  }

  std::vector<std::string> calls_;
  int failAfter_ = -1;
  Status failure_ = kNoError;
};

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_VIEWS_MODEL_BOOK_H_
