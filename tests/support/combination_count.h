// The number of cases that a sweep has tested, printed when all tests have run.

#ifndef QUILLKIT_TESTS_SUPPORT_COMBINATION_COUNT_H_
#define QUILLKIT_TESTS_SUPPORT_COMBINATION_COUNT_H_

#include <gtest/gtest.h>

#include <cstdio>

namespace quillkit {

class CombinationCount : public testing::Environment {
 public:
  // Prints "label: count" when all tests have run. GoogleTest owns the result.
  static CombinationCount& Of(const char* counted) {
    auto* made = new CombinationCount(counted);
    testing::AddGlobalTestEnvironment(made);
    return *made;
  }

  void Add() { ++count; }

  void TearDown() override {
    if (count != 0) std::printf("%s: %d\n", label, count);
  }

 private:
  explicit CombinationCount(const char* counted) : label(counted) {}

  const char* const label;
  int count = 0;
};

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_SUPPORT_COMBINATION_COUNT_H_
