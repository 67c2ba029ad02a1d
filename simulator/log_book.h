// The log book: records in the order in which they came, each of one user.

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
  // The records it keeps: beyond them the oldest one goes when another comes.
  static constexpr std::size_t kCapacity = 65536;

  // Appends a record of the form that this appliance gives them: the user in 32 bytes, and then the
  // text, both cut at their fields.
  void Add(std::string_view user, std::string_view text);

  // Appends a record as it stands.
  void Append(const LogRecord& record);

  // A user's records, or all for "" and "*".
  std::size_t Size(std::string_view filter) const;

  // REQUIRES: `index` is below Size(filter). Good until the next change.
  const LogRecord& At(std::string_view filter, std::size_t index) const;

  // Removes a user's records; for "" and "*" all; for a text of names that each stand behind "_!",
  // those of all other users.
  void Clear(std::string_view filter);

 private:
  using Numbers = std::deque<std::uint64_t>;

  const Numbers* NumbersOf(std::string_view user) const;

  std::deque<LogRecord> records;
  std::uint64_t firstNumber = 0;  // of records.front(); records are numbered as they come
  std::map<std::string, Numbers, std::less<>> byUser;
};

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_LOG_BOOK_H_
