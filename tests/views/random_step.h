// One operation on a view, drawn at random.

#ifndef QUILLKIT_TESTS_VIEWS_RANDOM_STEP_H_
#define QUILLKIT_TESTS_VIEWS_RANDOM_STEP_H_

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>

#include "tests/views/model_view.h"

namespace quillkit {

struct Step {
  std::size_t operation = 0;
  std::string key;
  std::int32_t number = 0;  // an index, a size or a flag
  char letter = '\0';
  CEmailEntry entry;
};

// What a failure message tells of a step.
std::string Text(const Step& step);

// Draws a step for a book that holds these entries. Walks are mostly made of Next and Prev.
Step DrawStep(std::mt19937& random, const Entries& content);

// Runs the step and tells what it gave. `key` and `entry` stand for those of the step.
std::string RunStep(CEntryView& view, const Step& step, std::string_view key, CEmailEntry* entry);

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_VIEWS_RANDOM_STEP_H_
