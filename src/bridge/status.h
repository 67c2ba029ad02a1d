// The status of a server call, and the texts of its codes.

#ifndef QUILLKIT_BRIDGE_STATUS_H_
#define QUILLKIT_BRIDGE_STATUS_H_

#include <cstdint>
#include <string_view>

namespace quillkit {

// 0, a server code, or one of the local codes below 0.
using Status = std::int32_t;

// The codes of the server. A comment marks a code that the library itself uses.
inline constexpr Status kNoError = 0;
inline constexpr Status kDuplicateLogin = 1;
inline constexpr Status kWrongUser = 2;
inline constexpr Status kNoSuchBook = 3;
inline constexpr Status kDataNotFound = 4;  // an empty result
inline constexpr Status kNoMoreAddresses = 5;
inline constexpr Status kGeneralFailure = 6;
inline constexpr Status kInvalidField = 7;
inline constexpr Status kBookLocked = 8;
inline constexpr Status kDuplicateBook = 9;
inline constexpr Status kNotLoggedIn = 10;
inline constexpr Status kAccessDenied = 11;
inline constexpr Status kStaticBook = 12;
inline constexpr Status kNotImplemented = 13;
inline constexpr Status kNameConflict = 14;
inline constexpr Status kServerIdle = 15;
inline constexpr Status kServerBusy = 16;
inline constexpr Status kBadCommand = 17;
inline constexpr Status kServerFailure = 18;
inline constexpr Status kTimeoutExpired = 19;
inline constexpr Status kNotInitialised = 20;  // the server library is not loaded
inline constexpr Status kMoreData = 21;        // success; more data than the buffer holds
inline constexpr Status kBusy = 22;
inline constexpr Status kBookFull = 24;     // a limit of the library or the server
inline constexpr Status kInvalidHost = 25;  // a host name that does not resolve

// Local codes. They are returned and not recorded as the last error; the only exception is
// described at CAgent::BackupDatabase and RestoreDatabase.
inline constexpr Status kRefused = -1;        // not connected, no such file, or an invalid argument
inline constexpr Status kUnusableInput = -2;  // a file that cannot be read, a rejected text
inline constexpr Status kMissingArgument = -3;  // an argument is absent, or not 7-bit
inline constexpr Status kUnknownFormat = -11;

// Returns the text of a code: empty for 23 and 26 to 31, "Unknown Error Code !" for a negative code
// and for 32 or more. Valid as long as the library.
std::string_view StatusText(Status code);

}  // namespace quillkit

#endif  // QUILLKIT_BRIDGE_STATUS_H_
