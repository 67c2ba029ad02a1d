// The route to the private book of the session's own account.

#ifndef QUILLKIT_BOOKS_SESSION_ROUTE_H_
#define QUILLKIT_BOOKS_SESSION_ROUTE_H_

#include "appliance/scanner.h"

namespace quillkit {

// Returns a bound scanner of TheAgent, whose access methods reach the appliance of the session.
// Valid as long as the library is loaded.
const CScanner& SessionRoute();

}  // namespace quillkit

#endif  // QUILLKIT_BOOKS_SESSION_ROUTE_H_
