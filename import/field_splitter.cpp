#include "import/field_splitter.h"

#include <cstddef>
#include <cstring>

namespace quillkit {

FieldSplitter::FieldSplitter(TextSpan text)
    : position_(text.data()), end_(text.data() + text.size()), quote_(FindFrom(position_, '"')) {}

bool FieldSplitter::Next(char separator, TextSpan* field) {
  if (position_ == nullptr) return false;
  char* stop = FindFrom(position_, separator);
  while (quote_ < stop) {
    char* closing = FindFrom(quote_ + 1, '"');
    if (closing == end_) {
      position_ = nullptr;
      return false;
    }
    quote_ = FindFrom(closing + 1, '"');
    if (closing > stop) stop = FindFrom(closing + 1, separator);
  }
  *field = {position_, stop};
  position_ = stop == end_ ? nullptr : stop + 1;
  if (quote_ == stop && stop != end_) quote_ = FindFrom(position_, '"');
  return true;
}

TextSpan FieldSplitter::Rest() const {
  return position_ == nullptr ? TextSpan() : TextSpan(position_, end_);
}

void FieldSplitter::MoveTo(char* position) {
  position_ = position;
  quote_ = FindFrom(position, '"');
}

char* FieldSplitter::FindFrom(char* from, char wanted) const {
  void* found = std::memchr(from, wanted, static_cast<std::size_t>(end_ - from));
  return found != nullptr ? static_cast<char*>(found) : end_;
}

}  // namespace quillkit
