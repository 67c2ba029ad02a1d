#include "platform/message_box.h"

#include <array>
#include <cstdio>

#include "platform/system_message_box.h"

namespace quillkit {
namespace {

struct ResourceText {
  unsigned id;
  const char* text;
};

constexpr std::array kTexts = {
    ResourceText{kSocketsFailedText, "Windows sockets initialization failed."},
    ResourceText{kServerLibraryMissingText, "IMSPAPI.DLL not loaded (because not found) !"},
    ResourceText{kSettingsKeyText, R"(Software\\Tarvenor\\Ledgerhouse)"},
    ResourceText{kSettingsFailedText, "Cannot access the Windows Registry."},
};

constexpr int kConfirmed = 1;

}  // namespace

int ShowSystemMessageBox(const char* text) {
  std::fprintf(stderr, "%s\n", text);
  return kConfirmed;
}

std::string LoadResourceText(unsigned id) {
  for (const ResourceText& each : kTexts) {
    if (each.id == id) return each.text;
  }
  return {};
}

}  // namespace quillkit
