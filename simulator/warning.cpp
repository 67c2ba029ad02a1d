#include "simulator/warning.h"

#include <iostream>

namespace quillbox {

void Warn(std::string_view subject, std::string_view text) {
  std::cerr << "simulated Quillbox: " << subject << ": " << text << std::endl;
}

}  // namespace quillbox
