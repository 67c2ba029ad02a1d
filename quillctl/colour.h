// Colours in what commands print to standard output.

#ifndef QUILLCTL_COLOUR_H_
#define QUILLCTL_COLOUR_H_

#include <string>

namespace quillctl {

enum class Colour { kRed = 31, kGreen = 32, kYellow = 33 };

// Returns the text in the colour; unchanged if standard output is not a terminal that shows
// colours, or if the environment variable NO_COLOR is set and not empty.
std::string Coloured(const std::string& text, Colour colour);

}  // namespace quillctl

#endif  // QUILLCTL_COLOUR_H_
