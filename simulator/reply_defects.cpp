#include "simulator/reply_defects.h"

#include <algorithm>
#include <cstring>

namespace quillbox {

void ReplyDefects::Set(std::uint32_t newDefects) {
  defects = newDefects;
  sizeError = 0;
}

std::uint32_t ReplyDefects::DeliveredCount(std::size_t delivered, std::uint32_t capacity) const {
  if (IsOn(kDefectDeliveredCount)) return capacity + 1000;
  return static_cast<std::uint32_t>(delivered -
                                    (IsOn(kDefectUnreported) && delivered != 0 ? 1 : 0));
}

void ReplyDefects::Fill(const BookType& type, void* record) const {
  char* const bytes = static_cast<char*>(record);
  for (const TextField& field : type.texts) FillText(bytes + field.offset, field.size);
}

void ReplyDefects::FillText(char* text, std::size_t size) const {
  if (IsOn(kDefectUnterminated)) std::fill(std::find(text, text + size, '\0'), text + size, '~');
}

void ReplyDefects::Scribble(BookKind kind, EntryKey* key, void* record) const {
  if (!IsOn(kDefectScribble)) return;
  if (key != nullptr) std::memset(static_cast<void*>(key), '~', sizeof *key);
  const BookType* const type = TypeOf(kind);
  if (type != nullptr && record != nullptr) std::memset(record, '~', type->recordSize);
}

void ReplyDefects::ScribbleArgument(ABIdent* book) const {
  if (IsOn(kDefectScribble) && book != nullptr) {
    std::memset(static_cast<void*>(book), '~', sizeof *book);
  }
}

void ReplyDefects::Distort(PageBoundary* row, std::size_t index) const {
  FillText(row->reserved, sizeof row->reserved);
  if (!IsOn(kDefectCensus)) return;
  row->count = 2 * row->count + 1;
  if (index % 2 != 0) row->count = -row->count;
}

std::uint32_t ReplyDefects::Size(std::size_t size) {
  if (IsOn(kDefectSize)) sizeError += 7;
  return static_cast<std::uint32_t>(size) + sizeError + inflation;
}

}  // namespace quillbox
