// The identity text of a server, split into its fields. The input: the text.

#include "bridge/identity.h"

#include <string>
#include <vector>

#include "fuzz/input.h"

namespace quillkit {
namespace {

constexpr std::string_view kWhite = " \t\n\v\f\r";

void CheckIdentity(std::string_view text) {
  const Identity identity = ParseIdentity(text);
  const std::string_view model = identity.model.View();
  const std::string_view version = identity.version.View();
  const std::string_view third = identity.third.View();

  Require(identity.model.IsTerminated() && identity.version.IsTerminated() &&
              identity.third.IsTerminated(),
          "each field is terminated");
  Require(model == text.substr(0, text.find('-')).substr(0, Identity().model.kMaxLength),
          "the model is the text before the first dash");
  Require(version.find('-') == version.npos, "the version has no dash");
  Require(version.empty() || kWhite.find(version.front()) == kWhite.npos,
          "the version does not begin with white space");
  Require(third.find_first_of(kWhite) == third.npos, "the third field is one word");
  Require(!model.empty() || version.empty(), "no version without a model");
  Require(!version.empty() || third.empty(), "no third field without a version");

  const Identity again =
      ParseIdentity(std::string(model) + '-' + std::string(version) + '-' + std::string(third));
  Require(again.model == model && again.version == version && again.third == third,
          "the joined fields are split into the same fields");
}

}  // namespace
}  // namespace quillkit

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const quillkit::Input input(data, size);
  // Cut at a NUL, like a reply. A copy, so that the sanitizer detects a read after the end.
  const std::string_view text = input.Rest().substr(0, input.Rest().find('\0'));
  const std::vector<char> copy(text.begin(), text.end());
  quillkit::CheckIdentity({copy.data(), copy.size()});
  return 0;
}
