// The number of cases that a sweep went through, told when all tests have run.

#ifndef QUILLKIT_TESTS_SUPPORT_COMBINATION_COUNT_H_
#define QUILLKIT_TESTS_SUPPORT_COMBINATION_COUNT_H_

#include <gtest/gtest.h>

#include <cstdio>

namespace quillkit {

class CombinationCount : public testing::Environment {
 public:
  // `of` says of what, in front of the number. GoogleTest owns the count.
  static CombinationCount& Of(const char* of) {
    auto* count = new CombinationCount(of);
    testing::AddGlobalTestEnvironment(count);
    return *count;
  }

  void Add() { ++count_; }

  void TearDown() override {
    if (count_ != 0) std::printf("%s: %d\n", of_, count_);
  }

 private:
  explicit CombinationCount(const char* of) : of_(of) {}

  const char* const of_;
  int count_ = 0;
};

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_SUPPORT_COMBINATION_COUNT_H_
