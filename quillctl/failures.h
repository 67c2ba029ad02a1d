// The exceptions that commands throw on failure. The text is shown to the user; the type determines
// the exit status. Only the functions below turn results of the library into exceptions.

#ifndef QUILLCTL_FAILURES_H_
#define QUILLCTL_FAILURES_H_

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace quillctl {

inline constexpr int kExitSuccess = 0;
inline constexpr int kExitRefused = 1;
inline constexpr int kExitUsage = 2;
inline constexpr int kExitPartial = 3;
inline constexpr int kExitNoLogin = 4;
inline constexpr int kExitUnknown = 5;

// The appliance or the library refused, something named does not exist, or writing failed.
class Refusal : public std::runtime_error {
  using runtime_error::runtime_error;
};

// The login failed: the appliance cannot be reached, or it refused the account.
class LoginRefusal : public Refusal {
  using Refusal::Refusal;
};

// The command line or an input file is invalid.
class UsageError : public std::runtime_error {
  using runtime_error::runtime_error;
};

// Some rows of a file were not imported.
class PartialFailure : public std::runtime_error {
  using runtime_error::runtime_error;
};

// The appliance may have made a change, but the result cannot be read.
class UnknownResult : public std::runtime_error {
  using runtime_error::runtime_error;
};

// Returns "code 14, Name Conflict" for a status. For local codes, which are negative and have no
// text in the library, the text is defined here.
std::string CodeAndText(std::int32_t status);

// Throws a Refusal "cannot `what`: code 14, Name Conflict" unless the status is 0.
void RequireSuccess(std::int32_t status, std::string_view what);

// Throws a Refusal that gives both codes unless the status is the expected one.
void RequireStatus(std::int32_t status, std::int32_t expected);

}  // namespace quillctl

#endif  // QUILLCTL_FAILURES_H_
