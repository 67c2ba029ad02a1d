#include "quillctl/json_output.h"

#include <iostream>

namespace quillctl {

void PrintJson(const Json& json) {
  std::cout << json.dump(2) << '\n';
}

}  // namespace quillctl
