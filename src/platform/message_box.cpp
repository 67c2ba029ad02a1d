#include "platform/message_box.h"

#include <utility>

#include "platform/system_message_box.h"

namespace quillkit {
namespace {

MessageBoxHandler redirected = nullptr;

}  // namespace

int ShowMessageBox(const char* text) {
  return redirected != nullptr ? redirected(text) : ShowSystemMessageBox(text);
}

int ShowResourceMessage(unsigned id) {
  return ShowMessageBox(LoadResourceText(id).c_str());
}

MessageBoxHandler SetMessageBoxHandler(MessageBoxHandler handler) {
  return std::exchange(redirected, handler);
}

}  // namespace quillkit
