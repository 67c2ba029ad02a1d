// The settings of directory servers, stored for the user: texts and 32-bit numbers by name, with or
// without a profile.
//
// They are in the key "Software\Tarvenor\Ledgerhouse\LDAP" of the user's settings
// (platform/user_settings.h). A profile is a subkey of its name. Names come from the caller, may
// contain any bytes, and end at their NUL; a backslash in a profile's name separates two keys. A
// null or empty profile means the settings without a profile, unless a function says otherwise.
//
// A failed change shows the message "Cannot access the Windows Registry.", for any reason. Call
// from one thread. Makes no server call.

#ifndef QUILLKIT_SETTINGS_LDAP_SETTINGS_STORE_H_
#define QUILLKIT_SETTINGS_LDAP_SETTINGS_STORE_H_

#include <cstdint>
#include <string>

#include "platform/user_settings.h"

namespace quillkit {

// Writes the next profile in the order of names to `name`, and its length to `*length`, which holds
// the size of `name` in bytes. Returns 0; 234 for a name that does not fit, which the next call
// skips; 259 after the last profile, and the next call starts again; or the status of opening the
// key. The process has one enumeration; it continues where the latest call ended.
SettingsStatus EnumLdapProfiles(char* name, std::uint32_t* length);

// Returns the text of a value, up to its first NUL. Returns an empty text if there is no such key
// or value, or the text has more than 512 characters. Ignores the type of the value: a number is
// returned as its bytes.
std::string GetLdapString(const char* profile, const char* value);

// Stores a text; a null one is stored as empty. Creates the key. Returns 1; or 0 with the message
// on a failure, or if the path of the key is longer than 260 characters.
int SetLdapString(const char* profile, const char* value, const char* text);

// Returns the number of a value. Returns 0 if there is no such key, and `fallback` if the key has
// no such value or one of more than four bytes. Ignores the type of the value.
std::uint32_t GetLdapDword(const char* profile, const char* value, std::uint32_t fallback);

// Stores a number. Creates the key; its path has no limit here. Shows the message on a failure.
void SetLdapDword(const char* profile, const char* value, std::uint32_t number);

// Deletes a profile with all its values. Returns 1; or 0 with the message if there is no such
// profile, `profile` is null, or the profile has subkeys. An empty name deletes the settings
// without a profile, if there are no profiles.
int DeleteLdapProfile(const char* profile);

// Shows the text of the resource. Returns the result of the message box. The status and the label
// are not shown.
int ReportRegistryError(SettingsStatus status, unsigned resource, const char* label);

}  // namespace quillkit

#endif  // QUILLKIT_SETTINGS_LDAP_SETTINGS_STORE_H_
