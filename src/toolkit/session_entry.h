// The path of a login: from a host name and credentials to a connected appliance.

#ifndef QUILLKIT_TOOLKIT_SESSION_ENTRY_H_
#define QUILLKIT_TOOLKIT_SESSION_ENTRY_H_

#include <cstdint>
#include <string>

namespace quillkit {

class CScanner;
class CUserRecord;

// 1 after a login that succeeded completely. 0 before the first login, after a logout, and from the
// moment the next login starts to resolve its host. Only GetTopLevelAbook reads it.
inline std::int32_t SessionOpen = 0;

// Fills `record` with the credentials that the application passed. Returns 1, or 0 and no change
// for a name over 31, a password over 15 or a third text over 255 bytes. A long name is rejected,
// not truncated: the truncated name could be that of another account.
int BuildUserRecord(CUserRecord* record, const std::string& user, const std::string& password,
                    const std::string& third);

// Logs in. Returns the handle of the appliance, owned by TheAgent. Returns null if the host cannot
// be resolved (records 25), if it is 0.0.0.0 (records nothing), or if the login fails. A failed
// login sends IMSPLogout and ends the session of an earlier user.
CScanner* ConnectToAppliance(const std::string& host, CUserRecord* user, std::int32_t loadTopBook);

// Initialises `scanner` with the host's name, as given, and its address. Stores the address in
// `*address` too. Returns 1, or 0 in the first two cases of ConnectToAppliance.
int ResolveHostName(const std::string& host, CScanner* scanner, std::uint32_t* address);

// Returns the address of a host name, which may begin with one or two slashes or backslashes, or 0
// if it cannot be resolved.
std::uint32_t LookupHost(const char* text);

}  // namespace quillkit

#endif  // QUILLKIT_TOOLKIT_SESSION_ENTRY_H_
