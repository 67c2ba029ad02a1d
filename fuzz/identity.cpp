// What a server says of itself, taken apart.

#include "bridge/identity.h"

#include <string>
#include <vector>

#include "fuzz/input.h"

namespace quillkit {
namespace {

constexpr std::string_view kBlanks = " \t\n\v\f\r";

bool IsSame(const Identity& one, const Identity& other) {
  return one.model == other.model.View() && one.version == other.version.View() &&
         one.third == other.third.View();
}

void CheckIdentity(std::string_view text) {
  const Identity identity = ParseIdentity(text);
  const std::string_view model = identity.model.View();
  const std::string_view version = identity.version.View();
  const std::string_view third = identity.third.View();

  Require(identity.model.IsTerminated() && identity.version.IsTerminated() &&
              identity.third.IsTerminated(),
          "each field ends inside itself");
  Require(model == text.substr(0, text.find('-')).substr(0, Identity().model.kMaxLength),
          "the model is the text in front of the first dash");
  Require(version.find('-') == version.npos, "the version has no dash");
  Require(version.empty() || kBlanks.find(version.front()) == kBlanks.npos,
          "the version begins without a blank");
  Require(third.find_first_of(kBlanks) == third.npos, "the third field is one word");
  Require(!model.empty() || version.empty(), "no version without a model");
  Require(!version.empty() || third.empty(), "no third field without a version");

  const std::string rebuilt =
      std::string(model) + '-' + std::string(version) + '-' + std::string(third);
  Require(IsSame(ParseIdentity(rebuilt), identity), "the fields put together give the fields");
}

}  // namespace
}  // namespace quillkit

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const quillkit::Input input(data, size);
  // In memory of its own, so that a read behind its end is seen; up to its NUL, as a reply is read.
  const std::string_view text = input.Rest().substr(0, input.Rest().find('\0'));
  const std::vector<char> copy(text.begin(), text.end());
  quillkit::CheckIdentity({copy.data(), copy.size()});
  return 0;
}
