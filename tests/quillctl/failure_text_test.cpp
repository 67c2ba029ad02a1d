#include <gtest/gtest.h>

#include "quillctl/failures.h"

namespace quillctl {
namespace {

struct CodeCase {
  int code;
  const char* text;
};

TEST(CodeAndText, HasTheLibrarysTextWholeAndItsOwnForLocalCodes) {
  const CodeCase cases[] = {
      {2, "code 2, Invalid User or Password"},
      {3, "code 3, Address Book Not Found"},
      {11, "code 11, Access Denied"},
      {21, "code 21, More Data Available than request"},  // the longest
      {23, "code 23, no description"},
      {31, "code 31, no description"},
      {32, "code 32, Unknown Error Code !"},
      {-1, "code -1, file not found, invalid argument or not connected"},
      {-2, "code -2, cannot read the file"},
      {-7, "code -7, no description"},
  };
  for (const CodeCase& each : cases) EXPECT_EQ(CodeAndText(each.code), each.text);
}

TEST(RequireSuccess, TellsWhatCouldNotBeDone) {
  EXPECT_NO_THROW(RequireSuccess(0, "do this"));
  try {
    RequireSuccess(14, "do this");
    FAIL() << "no exception";
  } catch (const Refusal& refusal) {
    EXPECT_STREQ(refusal.what(), "cannot do this: code 14, Name Conflict");
  }
}

}  // namespace
}  // namespace quillctl
