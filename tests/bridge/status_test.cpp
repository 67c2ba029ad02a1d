// The texts of the codes, each in its place.

#include "bridge/status.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace quillkit {
namespace {

TEST(StatusText, EachCodeHasItsOwn) {
  std::string texts;
  for (Status code = 0; code < 32; ++code) {
    texts.append(StatusText(code)).append("|");
    EXPECT_EQ(*StatusText(code).end(), '\0') << "a C string, as callers copy it";
  }
  EXPECT_EQ(texts,
            "No Error|Duplicated Login|Invalid User or Password|Address Book Not Found|"
            "Data Not Found|No More Addresses|General Failure|Invalid Field|Address Book Locked|"
            "Duplicated Address Book's Name|Not Logged In|Access Denied|Static Address Book|"
            "Call Not Implemented|Name Conflict|IMSP Idle|IMSP Server Busy|Bad Command|"
            "IMSP Failure|Timeout Expired|IMSP Unitialized|More Data Available than request|"
            "IMSP Busy||Address Book Full|Invalid host name|||||||");
  for (const Status code :
       {32, kRefused, std::numeric_limits<Status>::max(), std::numeric_limits<Status>::min()}) {
    EXPECT_EQ(StatusText(code), "Unknown Error Code !") << code;
  }
}

}  // namespace
}  // namespace quillkit
