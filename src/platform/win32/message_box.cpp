#include "platform/message_box.h"

#include <windows.h>

#include <array>

#include "platform/system_message_box.h"

namespace quillkit {
namespace {

constexpr std::size_t kLongestText = 256;  // bytes, with the NUL

// The module that contains this code and its resources: the DLL, or a program that links the class
// library.
HMODULE OwnModule() {
  HMODULE module = nullptr;
  GetModuleHandleExA(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      reinterpret_cast<const char*>(&OwnModule), &module);
  return module;
}

}  // namespace

int ShowSystemMessageBox(const char* text) {
  return MessageBoxA(nullptr, text, "Quillkit", MB_OK);
}

std::string LoadResourceText(unsigned id) {
  if (id > UINT16_MAX) return {};  // LoadStringA uses only 16 bits
  std::array<char, kLongestText> text{};
  const int length = LoadStringA(OwnModule(), id, text.data(), static_cast<int>(text.size()));
  return {text.data(), static_cast<std::size_t>(length)};
}

}  // namespace quillkit
