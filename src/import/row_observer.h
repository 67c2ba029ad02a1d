// What a converter makes of each line of its source, for callers that account for every row.

#ifndef QUILLKIT_IMPORT_ROW_OBSERVER_H_
#define QUILLKIT_IMPORT_ROW_OBSERVER_H_

#include <cstdint>
#include <span>
#include <string_view>

namespace quillkit {

class RowObserver {
 public:
  virtual ~RowObserver() = default;

  // Called once for each line that the converter reads, also for each part of a line of more than
  // 4094 characters; then for the next one. `number` is the number of the line in the file, from 1.
  // `values` are the values of the entry that the line completed, one for each field of the book,
  // before they are truncated to the widths of the script. They are empty if the line completed no
  // entry: a heading, a blank line, a row of another kind, a row without an address, an unformatted
  // row, a line in the middle of a directory entry. A value that the row does not have is null.
  // The values of a directory entry are those of DirectoryEntry, which are truncated.
  //
  // The values are valid during the call. An exception ends the conversion and is passed to its
  // caller; the script is then incomplete.
  virtual void OnLine(std::uint64_t number, std::span<const std::string_view> values) = 0;
};

}  // namespace quillkit

#endif  // QUILLKIT_IMPORT_ROW_OBSERVER_H_
