// The message box of the platform. Call it through platform/message_box.h.

#ifndef QUILLKIT_PLATFORM_SYSTEM_MESSAGE_BOX_H_
#define QUILLKIT_PLATFORM_SYSTEM_MESSAGE_BOX_H_

namespace quillkit {

// Shows the message. ShowMessageBox calls it unless messages are redirected.
int ShowSystemMessageBox(const char* text);

}  // namespace quillkit

#endif  // QUILLKIT_PLATFORM_SYSTEM_MESSAGE_BOX_H_
