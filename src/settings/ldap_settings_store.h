// Settings of directory servers, kept for the user: texts and 32-bit values by name, some of their
// own and some under profiles.
//
// They stand in the key "Software\\Tarvenor\\Ledgerhouse\LDAP" of the user's settings
// (platform/user_settings.h), a profile's in the key of its name below that. Names come from the
// caller, may have any bytes, and end at their NUL; a backslash in a profile's name leads to a key
// below a key. Where a profile may be null, null stands for none; an empty name comes to the same.
//
// Reads that fail give what each of them says. A failed change shows the one message "Cannot access
// the Windows Registry.", whatever the reason. Nothing here needs a server. Call from one thread.

#ifndef QUILLKIT_SETTINGS_LDAP_SETTINGS_STORE_H_
#define QUILLKIT_SETTINGS_LDAP_SETTINGS_STORE_H_

#include <cstdint>
#include <string>

#include "platform/user_settings.h"

namespace quillkit {

// The next profile in the order of names: 0, with its name in `name` and its length in `*length`,
// which came in as the room in bytes. 234 for a name that does not fit, which counts as told; 259
// behind the last, and the next call begins again; a failed opening's status. The walk is one for
// the whole process, and goes on where it was broken off.
SettingsStatus EnumLdapProfiles(char* name, std::uint32_t* length);

// The text of a value, up to its first NUL. Empty when there is no such key or value, and for one
// of more than 512 characters. The value's type is not looked at: a number gives its bytes.
std::string GetLdapString(const char* profile, const char* value);

// Stores a text, null as the empty one, and gives 1; creates the key. 0 with the message when that
// fails, or when the whole path of the key is longer than 260 characters.
int SetLdapString(const char* profile, const char* value, const char* text);

// The number of a value. 0 when there is no such key; `fallback` when the key has no such value or
// one of more than four bytes. The value's type is not looked at.
std::uint32_t GetLdapDword(const char* profile, const char* value, std::uint32_t fallback);

// Stores a number; creates the key. A failure shows the message. No path is too long here.
void SetLdapDword(const char* profile, const char* value, std::uint32_t number);

// Deletes a profile with all its values: 1, or 0 with the message when there is none, it is null,
// or it has keys below it. The empty name means the settings of no profile, while there are no
// others.
int DeleteLdapProfile(const char* profile);

// Shows the resource's text and gives the box's result. The status and the label are not shown.
int ReportRegistryError(SettingsStatus status, unsigned resource, const char* label);

}  // namespace quillkit

#endif  // QUILLKIT_SETTINGS_LDAP_SETTINGS_STORE_H_
