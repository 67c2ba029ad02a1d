// The number of cases that a sweep has tested, printed at the end.

#ifndef QUILLKIT_TESTS_SUPPORT_COMBINATION_COUNT_H_
#define QUILLKIT_TESTS_SUPPORT_COMBINATION_COUNT_H_

#include <cstdio>

namespace quillkit {

// A static object. Prints "label: count" when the program ends.
class CombinationCount {
 public:
  explicit constexpr CombinationCount(const char* counted) : label(counted) {}
  CombinationCount(const CombinationCount&) = delete;
  CombinationCount& operator=(const CombinationCount&) = delete;
  ~CombinationCount() {
    if (count != 0) std::printf("%s: %d\n", label, count);
  }

  void Add(int more = 1) { count += more; }

 private:
  const char* const label;
  int count = 0;
};

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_SUPPORT_COMBINATION_COUNT_H_
