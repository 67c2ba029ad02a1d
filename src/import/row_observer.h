// Receives the result of each line of a conversion, for callers that report on every row.

#ifndef QUILLKIT_IMPORT_ROW_OBSERVER_H_
#define QUILLKIT_IMPORT_ROW_OBSERVER_H_

#include <cstdint>
#include <span>
#include <string_view>

#include "base/language.h"

namespace quillkit {

class RowObserver {
 public:
  virtual ~RowObserver() = default;

  // Called once for each line that the converter reads, in order. A line of more than 4094
  // characters is read in parts, with a call for each part.
  //   `number`  The number of the line in the file, from 1. All parts of a line have that number.
  //   `values`  The values of the entry that the line completed, one for each field of the book; a
  //             value that the row does not have is null. Empty if the line completed no entry: a
  //             heading, a blank line, a row of another kind, a row without an address, an
  //             unformatted row, a line in the middle of a directory entry. The values are not
  //             truncated to the widths of the script, except those of a directory entry.
  //
  // The values are valid during the call. An exception ends the conversion and is passed to its
  // caller; the script is then incomplete.
  virtual void OnLine(std::uint64_t number, std::span<const std::string_view> values) = 0;
};

}  // namespace quillkit

#endif  // QUILLKIT_IMPORT_ROW_OBSERVER_H_
