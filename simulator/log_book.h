// The log book: records in order of arrival, each belonging to one user.

#ifndef QUILLKIT_SIMULATOR_LOG_BOOK_H_
#define QUILLKIT_SIMULATOR_LOG_BOOK_H_

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "simulator/protocol.h"

namespace quillbox {

class LogBook {
 public:
  // The maximum number of records. When it is full, a new record replaces the oldest.
  static constexpr std::size_t kCapacity = 65536;

  // Appends a record in the format of this appliance: the user in 32 bytes, then the text, both cut
  // to their fields.
  void Add(std::string_view user, std::string_view text);

  // Appends a record unchanged.
  void Append(const LogRecord& record);

  // The number of records of a user, or of all records for "" and "*".
  std::size_t Size(std::string_view filter) const;

  // REQUIRES: `index` is below Size(filter). Valid until the next change.
  const LogRecord& At(std::string_view filter, std::size_t index) const;

  // Removes the records of one user, or all records for "" and "*". A filter such as "_!A_!B"
  // removes the records of all users except A and B.
  void Clear(std::string_view filter);

 private:
  using Numbers = std::deque<std::uint64_t>;

  const Numbers* NumbersOf(std::string_view user) const;

  std::deque<LogRecord> records;
  std::uint64_t firstNumber = 0;  // of records.front(); records are numbered in order of arrival
  std::map<std::string, Numbers, std::less<>> byUser;
};

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_LOG_BOOK_H_
