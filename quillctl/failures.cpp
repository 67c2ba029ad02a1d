#include "quillctl/failures.h"

#include "toolkit/quillkit.h"

namespace quillctl {
namespace {

// Enough for most texts; a longer one tells its length.
constexpr std::size_t kFirstRoom = 24;

std::string LibraryText(std::int32_t code) {
  std::string text(kFirstRoom, '\0');
  auto size = static_cast<std::int32_t>(text.size());
  if (quillkit::TranslateToolkitError(code, text.data(), &size) == 0) {
    text.resize(static_cast<std::size_t>(size) + 1);  // the length told does not count the NUL
    size = static_cast<std::int32_t>(text.size());
    if (quillkit::TranslateToolkitError(code, text.data(), &size) == 0) return {};
  }
  return text.substr(0, text.find('\0'));
}

struct LocalCode {
  std::int32_t code;
  std::string_view text;
};

// What the library answers without the server. It has no texts for these.
constexpr LocalCode kLocalCodes[] = {
    {-1, "no such file, a bad argument, or not connected"},
    {-2, "the file cannot be read"},
    {-3, "an argument is absent"},
    {-11, "unknown import format"},
};

std::string LocalText(std::int32_t code) {
  for (const LocalCode& each : kLocalCodes) {
    if (each.code == code) return std::string(each.text);
  }
  return {};
}

}  // namespace

std::string CodeAndText(std::int32_t status) {
  const std::string text = status < 0 ? LocalText(status) : LibraryText(status);
  return "code " + std::to_string(status) + ", " + (text.empty() ? "which has no text" : text);
}

void RequireGood(std::int32_t status, std::string_view what) {
  if (status != 0) throw Refusal("cannot " + std::string(what) + ": " + CodeAndText(status));
}

void RequireCode(std::int32_t status, std::int32_t expected) {
  if (status == expected) return;
  if (expected == 0) throw Refusal(CodeAndText(status));
  throw Refusal((status == 0 ? "it was accepted" : CodeAndText(status)) + "; to come was " +
                CodeAndText(expected));
}

}  // namespace quillctl
