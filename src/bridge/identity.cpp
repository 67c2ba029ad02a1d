#include "bridge/identity.h"

#include <algorithm>

namespace quillkit {
namespace {

constexpr std::string_view kSpaces = " \t\n\v\f\r";

std::string_view SkipSpaces(std::string_view text) {
  return text.substr(std::min(text.find_first_not_of(kSpaces), text.size()));
}

// Moves the text before the next character of `ends` into `field`. Returns false if it is empty.
template <class Field>
bool ParseField(std::string_view& text, std::string_view ends, Field& field) {
  const std::string_view taken = text.substr(0, text.find_first_of(ends));
  field.Assign(taken);
  text.remove_prefix(taken.size());
  return !taken.empty();
}

// Removes a dash and the spaces around it from the front. Returns false if there is none.
bool SkipDash(std::string_view& text) {
  text = SkipSpaces(text);
  if (text.empty() || text.front() != '-') return false;
  text = SkipSpaces(text.substr(1));
  return true;
}

}  // namespace

Identity ParseIdentity(std::string_view text) {
  Identity identity;
  const bool complete = ParseField(text, "-", identity.model) && SkipDash(text) &&
                        ParseField(text, "-", identity.version) && SkipDash(text);
  if (complete) ParseField(text, kSpaces, identity.third);
  return identity;
}

}  // namespace quillkit
