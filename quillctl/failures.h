// How quillctl fails: with one of the exceptions below, whose text is shown and whose kind is
// the exit status. Results of the library become exceptions here and nowhere else.

#ifndef QUILLCTL_FAILURES_H_
#define QUILLCTL_FAILURES_H_

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace quillctl {

inline constexpr int kExitGood = 0;
inline constexpr int kExitRefused = 1;
inline constexpr int kExitUsage = 2;
inline constexpr int kExitPartly = 3;
inline constexpr int kExitNoLogin = 4;

// The appliance or the library refused, or does not have what was named.
class Refusal : public std::runtime_error {
  using runtime_error::runtime_error;
};

// Nobody is logged in: there is no appliance, or it refused the account.
class LoginRefusal : public Refusal {
  using Refusal::Refusal;
};

// The command line cannot be carried out as it stands.
class UsageError : public std::runtime_error {
  using runtime_error::runtime_error;
};

// Some rows of a file became entries and some did not.
class PartialFailure : public std::runtime_error {
  using runtime_error::runtime_error;
};

// A status as "code 14, Name Conflict". Local codes below 0 have no text in the library; they get
// one here.
std::string CodeAndText(std::int32_t status);

// Throws "cannot `what`: code and text" unless the status is 0.
void RequireGood(std::int32_t status, std::string_view what);

// The same for what is asked only to see the code that comes.
void RequireCode(std::int32_t status, std::int32_t expected);

}  // namespace quillctl

#endif  // QUILLCTL_FAILURES_H_
