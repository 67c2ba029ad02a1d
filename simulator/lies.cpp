#include "simulator/lies.h"

#include <algorithm>
#include <cstring>

namespace quillbox {

void Lies::Set(std::uint32_t newLies) {
  lies = newLies;
  sizeError = 0;
}

std::uint32_t Lies::DeliveredCount(std::size_t delivered, std::uint32_t capacity) const {
  if (Tells(kLieDeliveredCount)) return capacity + 1000;
  return static_cast<std::uint32_t>(delivered - (Tells(kLieUntold) && delivered != 0 ? 1 : 0));
}

void Lies::Fill(const BookType& type, void* record) const {
  char* const bytes = static_cast<char*>(record);
  for (const TextField& field : type.texts) FillText(bytes + field.offset, field.size);
}

void Lies::FillText(char* text, std::size_t size) const {
  if (Tells(kLieUnterminated)) std::fill(std::find(text, text + size, '\0'), text + size, '~');
}

void Lies::Scribble(BookKind kind, EntryKey* key, void* record) const {
  if (!Tells(kLieScribble)) return;
  if (key != nullptr) std::memset(static_cast<void*>(key), '~', sizeof *key);
  const BookType* const type = TypeOf(kind);
  if (type != nullptr && record != nullptr) std::memset(record, '~', type->recordSize);
}

void Lies::ScribbleArgument(ABIdent* book) const {
  if (Tells(kLieScribble) && book != nullptr) {
    std::memset(static_cast<void*>(book), '~', sizeof *book);
  }
}

void Lies::Distort(PageBoundary* row, std::size_t index) const {
  FillText(row->reserved, sizeof row->reserved);
  if (!Tells(kLieCensus)) return;
  row->count = 2 * row->count + 1;
  if (index % 2 != 0) row->count = -row->count;
}

std::uint32_t Lies::Size(std::size_t size) {
  if (Tells(kLieSize)) sizeError += 7;
  return static_cast<std::uint32_t>(size) + sizeError + inflation;
}

}  // namespace quillbox
