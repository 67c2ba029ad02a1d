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
      {23, "code 23, which has no text"},
      {31, "code 31, which has no text"},
      {32, "code 32, Unknown Error Code !"},
      {-1, "code -1, no such file, a bad argument, or not connected"},
      {-2, "code -2, the file cannot be read"},
      {-7, "code -7, which has no text"},
  };
  for (const CodeCase& each : cases) EXPECT_EQ(CodeAndText(each.code), each.text);
}

TEST(RequireGood, TellsWhatCouldNotBeDone) {
  EXPECT_NO_THROW(RequireGood(0, "do this"));
  try {
    RequireGood(14, "do this");
    FAIL() << "no exception";
  } catch (const Refusal& refusal) {
    EXPECT_STREQ(refusal.what(), "cannot do this: code 14, Name Conflict");
  }
}

}  // namespace
}  // namespace quillctl
