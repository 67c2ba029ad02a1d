// The names of the cases of a table-driven test.

#ifndef QUILLKIT_TESTS_TOOLKIT_CASE_NAME_H_
#define QUILLKIT_TESTS_TOOLKIT_CASE_NAME_H_

#include <gtest/gtest.h>

#include <string>

namespace quillkit {

// The `name` of a case, without its blanks.
template <class Case>
std::string CaseName(const testing::TestParamInfo<Case>& info) {
  std::string name = info.param.name;
  std::erase(name, ' ');
  return name;
}

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_TOOLKIT_CASE_NAME_H_
