// A record of a contact file, as the readers of all formats deliver it.

#ifndef CONTACTS_RECORD_H_
#define CONTACTS_RECORD_H_

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "contacts/problem.h"

namespace contacts {

// The place that an address belongs to.
enum class Place : std::uint8_t { kNone, kWork, kHome };

inline constexpr unsigned kNoPreference = 101;

// A value of a record.
struct Value {
  std::string name;                     // of its attribute or property; empty in a csv file
  std::string text;                     // UTF-8
  const Problem* fault = nullptr;       // why the text cannot be used
  unsigned column = 0;                  // its position in the record, from 1
  unsigned preference = kNoPreference;  // 1 is the best
  Place place = Place::kNone;
  bool isFax = false;
  bool isBytes = false;  // `text` is not UTF-8; it is kept byte for byte
};

// A statement about a record, or about one value of it.
struct Finding {
  const Problem* problem = nullptr;
  unsigned column = 0;       // 0: the whole record
  std::string heading = {};  // of the column
  std::size_t limit = 0;     // for kTooLong and kShortened: the largest size in bytes
};

// The values keep their memory when the record is read again.
class Record {
 public:
  static constexpr std::size_t kMaxValues = 1000;

  std::uint64_t line = 0;   // the number of its first line, from 1
  std::uint64_t begin = 0;  // the positions of its bytes in the file
  std::uint64_t end = 0;
  Finding fault;         // why it cannot be imported
  bool isGroup = false;  // a group or a distribution list
  // Whether the part of the record that names it is missing.
  bool isFragment = false;
  // Whether the names of its values are those of the book's fields.
  bool hasFieldNames = false;

  void Begin(std::uint64_t newLine, std::uint64_t newBegin) {
    line = newLine;
    begin = newBegin;
    fault.problem = nullptr;
    isGroup = isFragment = hasFieldNames = false;
    size = 0;
  }

  // Adds an empty value. A value beyond kMaxValues sets the fault and replaces the one before.
  Value& Add(std::string_view name) {
    if (size == kMaxValues) {
      SetFault(kTooManyValues);
      --size;
    }
    if (size == values.size()) values.emplace_back();
    Value& value = values[size++];
    value.name = name;
    value.text.clear();
    value.fault = nullptr;
    value.column = static_cast<unsigned>(size);
    value.preference = kNoPreference;
    value.place = Place::kNone;
    value.isFax = value.isBytes = false;
    return value;
  }

  std::span<const Value> Values() const { return std::span(values).first(size); }
  std::span<Value> Values() { return std::span(values).first(size); }

  // Sets the fault, unless there is one.
  void SetFault(const Problem& problem, unsigned column = 0, std::string_view heading = {}) {
    if (fault.problem != nullptr) return;
    fault.problem = &problem;
    fault.column = column;
    fault.heading = heading;
  }

 private:
  std::vector<Value> values;
  std::size_t size = 0;
};

// Reads the records of a file one by one.
class Reader {
 public:
  Reader() = default;
  Reader(const Reader&) = delete;
  Reader& operator=(const Reader&) = delete;
  virtual ~Reader() = default;

  // Reads the next record. Returns false after the last one.
  virtual bool Next(Record& record) = 0;
};

}  // namespace contacts

#endif  // CONTACTS_RECORD_H_
