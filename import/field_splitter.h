// Splits a line into fields at a separator that does not count between double quotes.
//
// The splitter walks over text that it does not own, change or copy. A field runs from where the
// last one ended to the next separator or to the end of the text, quotes included; two adjacent
// separators have an empty field between them. The separator is looked for before the quote, so a
// separator that is the double quote simply stops at the next one.
//
// Invariants: the position is inside the text or at its end, or absent once the fields are used up.

#ifndef QUILLKIT_IMPORT_FIELD_SPLITTER_H_
#define QUILLKIT_IMPORT_FIELD_SPLITTER_H_

#include <span>
#include <string_view>

namespace quillkit {

// A run of changeable bytes of a line.
using TextSpan = std::span<char>;

inline std::string_view View(TextSpan text) { return {text.data(), text.size()}; }

class FieldSplitter {
 public:
  // Begins at the front of `text`, which must stay where it is while the splitter is used.
  explicit FieldSplitter(TextSpan text);

  // Stores the next field and moves behind its separator. False when there is none: the last field
  // was taken, or this one has a quote that is not closed, which ends the fields for good.
  bool Next(char separator, TextSpan* field);

  // What the next field begins with, up to the end of the text; empty when the position is absent.
  TextSpan Rest() const;

  // Whether the last field has been taken.
  bool IsUsedUp() const { return position_ == nullptr; }

  // Moves to `position`, inside the text or at its end, and makes it present again.
  void MoveTo(char* position);

 private:
  char* FindFrom(char* from, char wanted) const;

  char* position_;  // null when absent
  char* end_;
  char* quote_;  // the first double quote at or behind position_, end_ when there is none
};

}  // namespace quillkit

#endif  // QUILLKIT_IMPORT_FIELD_SPLITTER_H_
