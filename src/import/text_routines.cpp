#include "import/text_routines.h"

#include <algorithm>

namespace quillkit {
TextSpan StripChar(char removed, TextSpan text) {
  char* const end = text.data() + text.size();
  return {text.data(), std::remove(FindCharacter(text.data(), removed, end), end, removed)};
}

}  // namespace quillkit
