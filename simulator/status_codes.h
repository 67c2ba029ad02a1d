// The codes with which the appliance answers, beside those that bridge/status.h names.

#ifndef QUILLKIT_SIMULATOR_STATUS_CODES_H_
#define QUILLKIT_SIMULATOR_STATUS_CODES_H_

#include "bridge/status.h"

namespace quillkit {

inline constexpr Status kWrongUser = 2;
inline constexpr Status kNoSuchBook = 3;
inline constexpr Status kInvalidField = 7;
inline constexpr Status kDuplicateBook = 9;
inline constexpr Status kNotLoggedIn = 10;
inline constexpr Status kAccessDenied = 11;
inline constexpr Status kStaticBook = 12;
inline constexpr Status kNotImplemented = 13;
inline constexpr Status kNameConflict = 14;
inline constexpr Status kBadCommand = 17;
inline constexpr Status kTimeoutExpired = 19;

}  // namespace quillkit

#endif  // QUILLKIT_SIMULATOR_STATUS_CODES_H_
