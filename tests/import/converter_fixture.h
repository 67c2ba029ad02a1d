// The stage of the converters' tests: a file of given bytes is turned into a script.

#ifndef QUILLKIT_TESTS_IMPORT_CONVERTER_FIXTURE_H_
#define QUILLKIT_TESTS_IMPORT_CONVERTER_FIXTURE_H_

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "tests/import/run_converter.h"
#include "tests/support/scratch_folder.h"

namespace quillkit {

class ConverterTest : public testing::Test {
 protected:
  // Expects that a file of these bytes gives this script.
  void ExpectScript(Converter converter, std::string_view file, std::string_view script,
                    const model::Request& request = {}) const;

  // What a file of text holds on this system, which may end lines in its own manner.
  std::string OnDisk(std::string_view text) const;

  const ScratchFolder folder;
};

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_IMPORT_CONVERTER_FIXTURE_H_
