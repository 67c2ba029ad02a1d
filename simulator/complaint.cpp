#include "simulator/complaint.h"

#include <iostream>

namespace quillbox {

void Complain(std::string_view variable, std::string_view text) {
  std::cerr << "simulated Quillbox: " << variable << ": " << text << std::endl;
}

}  // namespace quillbox
