// Messages for the user, and the string resources that they show.

#ifndef QUILLKIT_PLATFORM_MESSAGE_BOX_H_
#define QUILLKIT_PLATFORM_MESSAGE_BOX_H_

#include <string>

namespace quillkit {

using MessageBoxHandler = int (*)(const char* text);

// Shows `text` in a message box on Windows, or as a line on standard error on other systems.
// Returns the result of the box, or 1 without a box.
int ShowMessageBox(const char* text);

// Redirects all later messages to `handler`, which must stay callable. Null restores the message
// box of the platform. Returns the previous handler, or null.
MessageBoxHandler SetMessageBoxHandler(MessageBoxHandler handler);

// Identifiers of the library's string resources.
inline constexpr unsigned kSocketsFailedText = 101;
inline constexpr unsigned kServerLibraryMissingText = 102;
inline constexpr unsigned kSettingsKeyText = 103;
inline constexpr unsigned kSettingsFailedText = 105;

// Returns the text of a string resource, or an empty text for an unknown identifier. The path of
// the settings key has two backslashes between its parts.
std::string LoadResourceText(unsigned id);

// Shows the text of a string resource with ShowMessageBox. Returns its result.
int ShowResourceMessage(unsigned id);

}  // namespace quillkit

#endif  // QUILLKIT_PLATFORM_MESSAGE_BOX_H_
