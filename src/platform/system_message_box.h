// The message box of the platform itself, behind the redirection of platform/message_box.h.

#ifndef QUILLKIT_PLATFORM_SYSTEM_MESSAGE_BOX_H_
#define QUILLKIT_PLATFORM_SYSTEM_MESSAGE_BOX_H_

namespace quillkit {

// What ShowMessageBox does where nobody has redirected it.
int ShowSystemMessageBox(const char* text);

}  // namespace quillkit

#endif  // QUILLKIT_PLATFORM_SYSTEM_MESSAGE_BOX_H_
