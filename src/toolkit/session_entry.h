// The path of a login: from a host name and credentials to a connected appliance.

#ifndef QUILLKIT_TOOLKIT_SESSION_ENTRY_H_
#define QUILLKIT_TOOLKIT_SESSION_ENTRY_H_

#include <cstdint>
#include <string>

namespace quillkit {

class CScanner;
class CUserRecord;

// 1 after a login that succeeded whole; 0 before any, from the moment the next one begins to look
// for its host, and after a logout. GetTopLevelAbook alone asks for it.
inline std::int32_t SessionOpen = 0;

// Fills `record` with an account as an application gives it. 0, and no change, for a name over 31,
// a password over 15 or a third text over 255 characters; else 1. The name is refused rather than
// cut, so that nobody is logged in as somebody else.
int BuildUserRecord(CUserRecord* record, const std::string& user, const std::string& password,
                    const std::string& third);

// Logs in and makes the handle of the appliance, owned by TheAgent. Null when the host does not
// resolve (25 is recorded), is 0.0.0.0 (nothing is recorded), or the login fails; IMSPLogout has
// then been sent, and a user who was logged in before is gone.
CScanner* ConnectToAppliance(const std::string& host, CUserRecord* user, std::int32_t loadTopBook);

// Gives `scanner` the host's name, as it is spelled, and its address, and stores the address. 0 as
// ConnectToAppliance tells, else 1.
int ResolveHostName(const std::string& host, CScanner* scanner, std::uint32_t* address);

// The address of a host name, which may have one or two leading slashes or backslashes, in network
// byte order; 0 when there is none.
std::uint32_t LookupHost(const char* text);

}  // namespace quillkit

#endif  // QUILLKIT_TOOLKIT_SESSION_ENTRY_H_
