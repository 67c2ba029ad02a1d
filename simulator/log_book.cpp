#include "simulator/log_book.h"

#include <algorithm>
#include <bit>

namespace quillbox {
namespace {

// The record that this appliance writes.
struct LogLine {
  FixedText<32> user;
  FixedText<168> text;
};
static_assert(sizeof(LogLine) == sizeof(LogRecord));

constexpr std::string_view kKeepPrefix = "_!";  // precedes the name of a user whose records stay

std::string_view UserOf(const LogRecord& record) {
  const std::string_view field(record.bytes, sizeof(LogLine::user));
  return field.substr(0, field.find('\0'));
}

bool IsWhole(std::string_view filter) {
  return filter.empty() || filter == "*";
}

// Whether `filter`, which begins with kKeepPrefix, contains this name.
bool Keeps(std::string_view filter, std::string_view user) {
  while (filter.starts_with(kKeepPrefix)) {
    filter.remove_prefix(kKeepPrefix.size());
    const std::string_view name = filter.substr(0, filter.find(kKeepPrefix));
    if (name == user) return true;
    filter.remove_prefix(name.size());
  }
  return false;
}

bool IsCleared(std::string_view filter, std::string_view user) {
  if (IsWhole(filter)) return true;
  return filter.starts_with(kKeepPrefix) ? !Keeps(filter, user) : user == filter;
}

}  // namespace

void LogBook::Add(std::string_view user, std::string_view text) {
  LogLine line;
  line.user.Assign(user);
  line.text.Assign(text);
  Append(std::bit_cast<LogRecord>(line));
}

void LogBook::Append(const LogRecord& record) {
  if (records.size() == kCapacity) {
    const auto oldest = byUser.find(UserOf(records.front()));
    oldest->second.pop_front();
    if (oldest->second.empty()) byUser.erase(oldest);
    records.pop_front();
    ++firstNumber;
  }
  byUser[std::string(UserOf(record))].push_back(firstNumber + records.size());
  records.push_back(record);
}

std::size_t LogBook::Size(std::string_view filter) const {
  if (IsWhole(filter)) return records.size();
  const Numbers* const numbers = NumbersOf(filter);
  return numbers != nullptr ? numbers->size() : 0;
}

const LogRecord& LogBook::At(std::string_view filter, std::size_t index) const {
  if (IsWhole(filter)) return records[index];
  return records[static_cast<std::size_t>((*NumbersOf(filter))[index] - firstNumber)];
}

void LogBook::Clear(std::string_view filter) {
  LogBook kept;
  for (const LogRecord& record : records) {
    if (!IsCleared(filter, UserOf(record))) kept.Append(record);
  }
  *this = std::move(kept);
}

const LogBook::Numbers* LogBook::NumbersOf(std::string_view user) const {
  const auto found = byUser.find(user);
  return found != byUser.end() ? &found->second : nullptr;
}

}  // namespace quillbox
