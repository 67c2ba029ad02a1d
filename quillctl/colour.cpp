#include "quillctl/colour.h"

#include <cstdlib>

#include "quillctl/system/terminal.h"

namespace quillctl {
namespace {

bool HasColours() {
  const char* const unwanted = std::getenv("NO_COLOR");
  return (unwanted == nullptr || *unwanted == '\0') && StdoutHasColours();
}

}  // namespace

std::string Coloured(const std::string& text, Colour colour) {
  static const bool hasColours = HasColours();
  if (!hasColours) return text;
  return "\x1B[" + std::to_string(static_cast<int>(colour)) + 'm' + text + "\x1B[0m";
}

}  // namespace quillctl
