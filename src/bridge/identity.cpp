#include "bridge/identity.h"

#include <algorithm>

namespace quillkit {
namespace {

constexpr std::string_view kBlanks = " \t\n\v\f\r";

std::string_view SkipBlanks(std::string_view text) {
  return text.substr(std::min(text.find_first_not_of(kBlanks), text.size()));
}

// Takes the text up to the next character of `ends`, at least one character of it, off the front.
template <class Field>
bool TakeField(std::string_view& text, std::string_view ends, Field& field) {
  const std::string_view taken = text.substr(0, text.find_first_of(ends));
  field.Assign(taken);
  text.remove_prefix(taken.size());
  return !taken.empty();
}

// Takes a dash and the blanks around it off the front.
bool TakeDash(std::string_view& text) {
  text = SkipBlanks(text);
  if (text.empty() || text.front() != '-') return false;
  text = SkipBlanks(text.substr(1));
  return true;
}

}  // namespace

Identity ParseIdentity(std::string_view text) {
  Identity identity;
  const bool complete = TakeField(text, "-", identity.model) && TakeDash(text) &&
                        TakeField(text, "-", identity.version) && TakeDash(text);
  if (complete) TakeField(text, kBlanks, identity.third);
  return identity;
}

}  // namespace quillkit
