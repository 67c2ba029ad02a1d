#include "console/displayed_text.h"

#include <algorithm>
#include <optional>

#include "contacts/encoding.h"

namespace console {
namespace {

bool IsContinuation(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

// Returns how many bytes the first character has. REQUIRES: the text is UTF-8 and not empty.
std::size_t CharacterLength(std::string_view text) {
  std::size_t length = 1;
  while (length < text.size() && IsContinuation(text[length])) ++length;
  return length;
}

std::string Utf8FromWindows1252(std::string_view text) {
  std::string utf8;
  for (const char byte : text) contacts::AppendWindows1252Character(utf8, byte);
  return utf8;
}

std::optional<contacts::Encoding> displayEncoding;

}  // namespace

std::vector<std::string> DisplayEncodings() {
  return {"utf-8", "windows-1252", "latin-1"};
}

void SetDisplayEncoding(std::string_view name) {
  displayEncoding = contacts::EncodingOf(name);
}

std::string Utf8Text(std::string_view text) {
  using contacts::Encoding;
  const Encoding detected = contacts::IsUtf8(text) ? Encoding::kUtf8 : Encoding::kWindows1252;
  const Encoding encoding = displayEncoding.value_or(detected);
  if (encoding == Encoding::kWindows1252) return Utf8FromWindows1252(text);
  std::string utf8;
  contacts::AppendUtf8(utf8, text, encoding);
  return utf8;
}

namespace {

constexpr char kDigits[] = "0123456789ABCDEF";

// Returns the number of a control character, or -1. Control characters 128 to 159 are C2 80 to
// C2 9F.
int ControlNumber(std::string_view character) {
  const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(character[at]); };
  if (byte(0) < 0x20 || byte(0) == 0x7F) return byte(0);
  return byte(0) == 0xC2 && byte(1) < 0xA0 ? byte(1) : -1;
}

}  // namespace

std::string HexadecimalBytes(std::string_view bytes) {
  std::string digits;
  for (const char byte : bytes) {
    const auto number = static_cast<unsigned char>(byte);
    digits += {kDigits[number >> 4], kDigits[number & 0xF]};
  }
  return digits;
}

std::string DisplayedText(std::string_view text) {
  const std::string utf8 = Utf8Text(text);
  std::string displayed;
  for (std::string_view rest = utf8; !rest.empty();) {
    const std::string_view character = rest.substr(0, CharacterLength(rest));
    rest.remove_prefix(character.size());
    if (const int number = ControlNumber(character); number >= 0) {
      displayed += {'\\', 'x', kDigits[number >> 4], kDigits[number & 0xF]};
    } else {
      displayed += character;
    }
  }
  return displayed;
}

std::vector<std::string> FormsOf(const std::string& typed) {
  std::string form;
  const bool hasForm = contacts::IsUtf8(typed) && contacts::AppendWindows1252(form, typed);
  if (!hasForm || form == typed) return {typed};
  return {typed, form};
}

std::string StoredName(const std::string& typed,
                       const std::function<bool(const std::string&)>& exists) {
  const std::vector<std::string> forms = FormsOf(typed);
  if (forms.size() == 1) return typed;
  const auto found = std::ranges::find_if(forms, exists);
  return found == forms.end() ? typed : *found;
}

std::string Quoted(std::string_view text) {
  return '"' + DisplayedText(text) + '"';
}

std::string Counted(std::size_t count, const std::string& singular, const std::string& plural) {
  const std::string many = plural.empty() ? singular + 's' : plural;
  return std::to_string(count) + ' ' + (count == 1 ? singular : many);
}

std::size_t DisplayedWidth(std::string_view displayed) {
  return displayed.size() -
         static_cast<std::size_t>(std::ranges::count_if(displayed, IsContinuation));
}

std::string CutDisplayed(const std::string& displayed, std::size_t width) {
  if (DisplayedWidth(displayed) <= width) return displayed;
  std::size_t end = 0;
  for (std::size_t i = 1; i < width; ++i)
    end += CharacterLength(std::string_view(displayed).substr(end));
  return displayed.substr(0, end) + "…";
}

}  // namespace console
