// The texts of the codes, each in its place.

#include "bridge/status.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string_view>
#include <vector>

namespace quillkit {
namespace {

TEST(StatusText, EachCodeHasItsOwn) {
  const std::vector<std::string_view> texts = {"No Error",
                                               "Duplicated Login",
                                               "Invalid User or Password",
                                               "Address Book Not Found",
                                               "Data Not Found",
                                               "No More Addresses",
                                               "General Failure",
                                               "Invalid Field",
                                               "Address Book Locked",
                                               "Duplicated Address Book's Name",
                                               "Not Logged In",
                                               "Access Denied",
                                               "Static Address Book",
                                               "Call Not Implemented",
                                               "Name Conflict",
                                               "IMSP Idle",
                                               "IMSP Server Busy",
                                               "Bad Command",
                                               "IMSP Failure",
                                               "Timeout Expired",
                                               "IMSP Unitialized",
                                               "More Data Available than request",
                                               "IMSP Busy",
                                               "",
                                               "Address Book Full",
                                               "Invalid host name",
                                               "",
                                               "",
                                               "",
                                               "",
                                               "",
                                               ""};
  for (std::size_t code = 0; code < texts.size(); ++code) {
    EXPECT_EQ(StatusText(static_cast<Status>(code)), texts[code]) << code;
    EXPECT_EQ(*StatusText(static_cast<Status>(code)).end(), '\0')
        << "a C string, as callers copy it";
  }
  for (const Status code : {32, 33, kRefused, kUnknownFormat, std::numeric_limits<Status>::max(),
                            std::numeric_limits<Status>::min()}) {
    EXPECT_EQ(StatusText(code), "Unknown Error Code !") << code;
  }
}

}  // namespace
}  // namespace quillkit
