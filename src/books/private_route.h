// The two routes to the private book of an account.

#ifndef QUILLKIT_BOOKS_PRIVATE_ROUTE_H_
#define QUILLKIT_BOOKS_PRIVATE_ROUTE_H_

namespace quillkit {

class CScanner;
class CUserAB;

// The scanner whose access methods reach an account's private book: for the session's own account,
// which has no owning book, one that goes straight to TheAgent and is always bound; for any other
// the owner's. Where the owner has none, one that gives -1 to everything and makes no call. Valid
// as long as the owner's scanner, or the library.
const CScanner& PrivateRoute(const CUserAB* owner);

}  // namespace quillkit

#endif  // QUILLKIT_BOOKS_PRIVATE_ROUTE_H_
