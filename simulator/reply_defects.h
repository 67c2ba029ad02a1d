// Wrong replies of the appliance. Each member has an effect only while its kind of wrong reply is
// on.

#ifndef QUILLKIT_SIMULATOR_REPLY_DEFECTS_H_
#define QUILLKIT_SIMULATOR_REPLY_DEFECTS_H_

#include <cstddef>
#include <cstdint>

#include "simulator/book_type.h"
#include "simulator/simulator.h"

namespace quillbox {

class ReplyDefects {
 public:
  void Set(std::uint32_t newDefects);

  // Adds wrong replies for one call. 0 ends them.
  void SetForCall(std::uint32_t newDefects) { ofCall = newDefects; }

  // Increases all reported sizes by this number, independent of the wrong replies.
  void InflateSizes(std::uint32_t by) { inflation = by; }

  // The count that a read claims to have delivered.
  std::uint32_t DeliveredCount(std::size_t delivered, std::uint32_t capacity) const;

  // Whether a failing call leaves its count unchanged.
  bool KeepsFailedCount() const { return IsOn(kDefectFailedCount); }

  // The slot for the record at `index` of `count`.
  std::size_t SlotOf(std::size_t index, std::size_t count) const {
    return IsOn(kDefectUnsorted) ? count - 1 - index : index;
  }

  // Fills the texts of a delivered record, or a single text, completely, without a NUL.
  void Fill(const BookType& type, void* record) const;
  void FillText(char* text, std::size_t size) const;

  // Overwrites the arguments of a change: a key and a record of a book of this kind. Both may be
  // null.
  void Scribble(BookKind kind, EntryKey* key, void* record) const;

  // Overwrites the book of a call. Other arguments stay unchanged.
  void ScribbleArgument(ABIdent* book) const;
  template <class Other>
  void ScribbleArgument(const Other& /*argument*/) const {}

  // Distorts a row of the census.
  void Distort(PageBoundary* row, std::size_t index) const;

  // The size to report.
  std::uint32_t Size(std::size_t size);

 private:
  bool IsOn(SimulatorDefect defect) const { return ((defects | ofCall) & defect) != 0; }

  std::uint32_t defects = 0;
  std::uint32_t ofCall = 0;
  std::uint32_t sizeError = 0;
  std::uint32_t inflation = 0;
};

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_REPLY_DEFECTS_H_
