// The logged-in user of a scanner. The functions make no server call.

#ifndef QUILLKIT_BOOKS_CONNECTED_USER_H_
#define QUILLKIT_BOOKS_CONNECTED_USER_H_

#include <cstddef>

namespace quillkit {

class CScanner;
class CUserRecord;

// Returns the logged-in user of the scanner's agent, or of TheAgent if the scanner is null or not
// bound; null if no user is logged in. The agent owns the record, which is valid until the next
// login, logout or shutdown.
CUserRecord* ConnectedUser(const CScanner* scanner);

// Returns 1 if the user is "ADMINISTRATOR", otherwise 0.
int IsConnectedUserAdministrator(const CScanner* scanner);

// Copies the user's name, cut at `size` - 1 bytes, and fills the rest of the buffer, which has
// `size` bytes, with NULs. Returns 1; or 0 and changes nothing if no user is logged in or `size` is
// 0.
int GetConnectedUserName(const CScanner* scanner, char* buffer, std::size_t size);

}  // namespace quillkit

#endif  // QUILLKIT_BOOKS_CONNECTED_USER_H_
