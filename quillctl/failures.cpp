#include "quillctl/failures.h"

#include <map>

#include "bridge/status.h"
#include "console/displayed_text.h"
#include "toolkit/quillkit.h"

namespace quillctl {
namespace {

// Enough for most texts. For a longer one the library returns the length.
constexpr std::size_t kInitialSize = 24;

std::string LibraryText(std::int32_t code) {
  std::string text(kInitialSize, '\0');
  auto size = static_cast<std::int32_t>(text.size());
  if (quillkit::TranslateToolkitError(code, text.data(), &size) == 0) {
    text.resize(static_cast<std::size_t>(size) + 1);  // the returned length excludes the NUL
    size = static_cast<std::int32_t>(text.size());
    if (quillkit::TranslateToolkitError(code, text.data(), &size) == 0) return {};
  }
  return text.substr(0, text.find('\0'));
}

// Returns the text of a code that the library returns without a server call. It has none for them.
std::string LocalText(std::int32_t code) {
  static const std::map<std::int32_t, const char*> texts = {
      {-1, "file not found, invalid argument or not connected"},
      {-2, "cannot read the file"},
      {-3, "missing argument"},
      {-11, "unknown import format"},
  };
  const auto found = texts.find(code);
  return found == texts.end() ? "" : found->second;
}

}  // namespace

std::string CodeAndText(std::int32_t status) {
  const std::string text = status < 0 ? LocalText(status) : LibraryText(status);
  return "code " + std::to_string(status) + ", " + (text.empty() ? "no description" : text);
}

void RequireSuccess(std::int32_t status, std::string_view what) {
  if (status == 0) return;
  const bool isMissing = status == quillkit::kNoSuchBook || status == quillkit::kDataNotFound;
  throw Refusal("cannot " + std::string(what) + ": " + CodeAndText(status),
                isMissing ? kExitNotFound : console::kExitRefused);
}

void RequireChange(std::int32_t status, std::string_view what) {
  if (status == quillkit::kServerFailure || status == quillkit::kTimeoutExpired) {
    throw UnknownResult("it is unknown whether the appliance did this: " + std::string(what) +
                        ": " + CodeAndText(status));
  }
  RequireSuccess(status, what);
}

NotFound NoAccount(const std::string& name) {
  return NotFound("the appliance has no account " + console::Quoted(name) +
                  "; see quillctl user list");
}

void RequireNewName(const std::string& name, const std::string& newName) {
  if (name == newName) throw UsageError("the new name is the old one");
}

void RequireStatus(std::int32_t status, std::int32_t expected) {
  if (status == expected) return;
  if (expected == 0) throw Refusal(CodeAndText(status));
  throw Refusal((status == 0 ? "accepted" : CodeAndText(status)) + "; expected " +
                CodeAndText(expected));
}

}  // namespace quillctl
