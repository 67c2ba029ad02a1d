// Who is connected, asked through a scanner.

#ifndef QUILLKIT_BOOKS_CONNECTED_USER_H_
#define QUILLKIT_BOOKS_CONNECTED_USER_H_

#include <cstddef>

namespace quillkit {

class CScanner;
class CUserRecord;

// The user of the scanner's agent, or of TheAgent where the scanner has none or is null. Null when
// nobody is connected. Owned by the agent, good until the next login, logout or shutdown.
CUserRecord* ConnectedUser(const CScanner* scanner);

// 1 where that is "ADMINISTRATOR", else 0.
int IsConnectedUserAdministrator(const CScanner* scanner);

// Copies the user's name, cut at `size` - 1 bytes, and pads it with NULs to `size`. 1, or 0 and no
// change when nobody is connected or `size` is 0.
int GetConnectedUserName(const CScanner* scanner, char* buffer, std::size_t size);

}  // namespace quillkit

#endif  // QUILLKIT_BOOKS_CONNECTED_USER_H_
