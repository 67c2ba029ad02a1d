// A walk through all exported functions, as an application that uses every one of them takes it,
// from LogToQuillbox to Exit. It goes on whatever the server answers.

#ifndef QUILLKIT_TESTS_TOOLKIT_TOUR_H_
#define QUILLKIT_TESTS_TOOLKIT_TOUR_H_

#include <string>
#include <vector>

#include "tests/toolkit/exports.h"

namespace quillkit {

// Takes the walk and gives one line for every result. Expects on the way what holds with any
// server: counts and indices lie inside their limits, and texts end inside their fields.
std::vector<std::string> Tour(const Exports& toolkit);

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_TOOLKIT_TOUR_H_
