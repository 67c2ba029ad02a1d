// The few messages that go to the person at the screen, and the resource texts they show.

#ifndef QUILLKIT_PLATFORM_MESSAGE_BOX_H_
#define QUILLKIT_PLATFORM_MESSAGE_BOX_H_

#include <string>

namespace quillkit {

using MessageBoxHandler = int (*)(const char* text);

// Shows `text`: a message box on Windows, a line on standard error elsewhere. Gives the box's
// result, 1 where there is no box.
int ShowMessageBox(const char* text);

// Redirects every later message to `handler`, which must stay callable; null restores the
// platform's own. Gives the earlier handler, null when there was none.
MessageBoxHandler SetMessageBoxHandler(MessageBoxHandler handler);

// Identifiers of the library's string resources.
inline constexpr unsigned kSocketsFailedText = 101;
inline constexpr unsigned kServerLibraryMissingText = 102;
inline constexpr unsigned kSettingsKeyText = 103;
inline constexpr unsigned kSettingsFailedText = 105;

// The text of a string resource; empty for an identifier that has none. That of the settings key
// has two backslashes at each joint.
std::string LoadResourceText(unsigned id);

// Shows the text of a string resource with ShowMessageBox. Returns its result.
int ShowResourceMessage(unsigned id);

}  // namespace quillkit

#endif  // QUILLKIT_PLATFORM_MESSAGE_BOX_H_
