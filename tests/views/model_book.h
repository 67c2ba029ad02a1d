// A plain model of the server's e-mail book: what each read delivers, and what the journal of the
// simulated appliance then shows.

#ifndef QUILLKIT_TESTS_VIEWS_MODEL_BOOK_H_
#define QUILLKIT_TESTS_VIEWS_MODEL_BOOK_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "bridge/records.h"

namespace quillkit {

using Entries = std::vector<CEmailEntry>;

// Whether `name` is what `key` looks for.
bool ModelMatches(const CEmailEntry& entry, std::string_view key, std::int32_t exact);

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
  Read ReadRun(std::string_view first, std::string_view filter, std::int32_t skip,
               std::int32_t capacity, std::int32_t direction);
  Read ReadOn(std::string_view first, std::string_view filter, std::int32_t capacity) {
    return ReadRun(first, filter, 0, capacity, 1);
  }

  Status Size(std::uint32_t* size);
  Census ReadCensus();
  Status Create(const CEmailEntry& entry);
  Status Modify(std::string_view key, const CEmailEntry& entry);
  Status Delete(std::string_view name);

  // Makes the call after `calls` others fail: its status, and nothing delivered.
  void FailAfter(int calls, Status status);
  bool HasFault() const { return failAfter_ >= 0; }

  std::vector<std::string> TakeCalls();

  Entries entries;  // in the order of unsigned bytes

 private:
  bool Call(std::string text, Status* status);
  Entries::iterator Place(std::string_view name);

  std::vector<std::string> calls_;
  int failAfter_ = -1;
  Status failure_ = kNoError;
};

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_VIEWS_MODEL_BOOK_H_
