// The word that a user probably meant.

#ifndef QUILLCTL_SUGGESTION_H_
#define QUILLCTL_SUGGESTION_H_

#include <string>
#include <string_view>
#include <vector>

namespace quillctl {

// Returns the candidate that begins with the word; or the one that the fewest insertions, deletions
// and replacements of characters turn into the word. Returns an empty text if every candidate needs
// more than one for each three characters of the word.
std::string Nearest(std::string_view word, const std::vector<std::string>& candidates);

}  // namespace quillctl

#endif  // QUILLCTL_SUGGESTION_H_
