#include "simulator/warning.h"

#include <iostream>

namespace quillbox {

void Warn(std::string_view variable, std::string_view text) {
  std::cerr << "simulated Quillbox: " << variable << ": " << text << std::endl;
}

}  // namespace quillbox
