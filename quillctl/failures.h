// The exceptions that commands throw on failure, with the statuses of an appliance and its library.
// Only the functions below turn results of the library into exceptions.

#ifndef QUILLCTL_FAILURES_H_
#define QUILLCTL_FAILURES_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "console/failure.h"
#include "console/system/deferred_termination.h"

namespace quillctl {

using console::Failure;
using console::FailureWith;
using console::Refusal;
using console::UsageError;

inline constexpr int kExitPartial = 3;
inline constexpr int kExitNoLogin = 4;
inline constexpr int kExitUnknown = 5;
inline constexpr int kExitNotFound = 6;
inline constexpr int kExitDiffers = 7;

// Something that the command line names does not exist on the appliance.
using NotFound = FailureWith<Refusal, kExitNotFound>;

// The login failed: the appliance cannot be reached, or it refused the account.
using LoginRefusal = FailureWith<Refusal, kExitNoLogin>;

// Some changes were made and others not, or some rows were not imported.
using PartialFailure = FailureWith<Failure, kExitPartial>;

// The appliance may have made a change, but the result cannot be read.
using UnknownResult = FailureWith<Failure, kExitUnknown>;

// The appliance differs from the file that it was compared with.
using Differs = FailureWith<Failure, kExitDiffers>;

// Returns "code 14, Name Conflict" for a status. For local codes, which are negative and have no
// text in the library, the text is defined here.
std::string CodeAndText(std::int32_t status);

// Throws a Refusal "cannot `what`: code 14, Name Conflict" unless the status is 0. Its exit
// status is kExitNotFound if the server has no such book or no such entry.
void RequireSuccess(std::int32_t status, std::string_view what);

// The same for a call that makes a change. Throws an UnknownResult if the reply was lost: code 18
// or 19.
void RequireChange(std::int32_t status, std::string_view what);

// Calls `read` after a change, and returns its result. Throws its Refusal as an UnknownResult that
// begins with `failure`.
template <class Read>
auto ReadBack(const std::string& failure, Read read) {
  try {
    return read();
  } catch (const Refusal& why) {
    throw UnknownResult(failure + ": " + why.what());
  }
}

// What a DeferredTermination announces during a call.
inline constexpr const char* kAwaitingReply = "waiting for the reply of the appliance";

// Makes a change that is one call, and throws as RequireChange does. A request to terminate the
// program waits for the reply.
template <class Call>
void MakeChange(Call call, std::string_view what) {
  const console::DeferredTermination termination(kAwaitingReply);
  RequireChange(call(), what);
}

// Returns the failure for an account that does not exist.
NotFound NoAccount(const std::string& name);

// Throws a UsageError if something would get the name that it has.
void RequireNewName(const std::string& name, const std::string& newName);

// Throws a Refusal that gives both codes unless the status is the expected one.
void RequireStatus(std::int32_t status, std::int32_t expected);

}  // namespace quillctl

#endif  // QUILLCTL_FAILURES_H_
