#include "quillctl/displayed_text.h"

#include <algorithm>

namespace quillctl {
namespace {

// The lead bytes of well-formed UTF-8, and the range of the second byte after each. The ranges
// exclude overlong forms, surrogates and characters above U+10FFFF. Further bytes are 80 to BF.
struct Lead {
  unsigned char first, last;
  unsigned char secondFirst, secondLast;
  std::size_t length;
};

constexpr Lead kLeads[] = {
    {0xC2, 0xDF, 0x80, 0xBF, 2}, {0xE0, 0xE0, 0xA0, 0xBF, 3}, {0xE1, 0xEC, 0x80, 0xBF, 3},
    {0xED, 0xED, 0x80, 0x9F, 3}, {0xEE, 0xEF, 0x80, 0xBF, 3}, {0xF0, 0xF0, 0x90, 0xBF, 4},
    {0xF1, 0xF3, 0x80, 0xBF, 4}, {0xF4, 0xF4, 0x80, 0x8F, 4},
};

unsigned char Byte(std::string_view text, std::size_t at) {
  return static_cast<unsigned char>(text[at]);
}

bool IsContinuation(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

// Returns how many bytes the UTF-8 character at the beginning of the text has; 0 if the text does
// not begin with one. REQUIRES: the text is not empty.
std::size_t CharacterLength(std::string_view text) {
  const unsigned char first = Byte(text, 0);
  if (first < 0x80) return 1;
  const auto* lead = std::ranges::find_if(
      kLeads, [first](const Lead& each) { return first >= each.first && first <= each.last; });
  if (lead == std::end(kLeads) || text.size() < lead->length) return 0;
  const unsigned char second = Byte(text, 1);
  if (second < lead->secondFirst || second > lead->secondLast) return 0;
  return std::ranges::all_of(text.substr(2, lead->length - 2), IsContinuation) ? lead->length : 0;
}

}  // namespace

bool IsUtf8(std::string_view text) {
  while (!text.empty()) {
    const std::size_t length = CharacterLength(text);
    if (length == 0) return false;
    text.remove_prefix(length);
  }
  return true;
}

std::string Utf8FromLatin1(std::string_view text) {
  std::string utf8;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const unsigned char byte = Byte(text, i);
    if (byte >= 0x80) utf8 += static_cast<char>(0xC0 | (byte >> 6));
    utf8 += byte >= 0x80 ? static_cast<char>(0x80 | (byte & 0x3F)) : text[i];
  }
  return utf8;
}

namespace {

enum class Encoding { kDetected, kUtf8, kWindows1252, kLatin1 };
Encoding displayEncoding = Encoding::kDetected;

// The characters 80 to 9F of Windows-1252. Undefined ones are those of Latin-1.
constexpr const char* kWindows1252[] = {"€",      "\u0081", "‚", "ƒ", "„", "…",      "†", "‡",
                                        "ˆ",      "‰",      "Š", "‹", "Œ", "\u008D", "Ž", "\u008F",
                                        "\u0090", "‘",      "’", "“", "”", "•",      "–", "—",
                                        "˜",      "™",      "š", "›", "œ", "\u009D", "ž", "Ÿ"};

std::string Utf8FromWindows1252(std::string_view text) {
  std::string utf8;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const unsigned char byte = Byte(text, i);
    utf8 +=
        byte >= 0x80 && byte < 0xA0 ? kWindows1252[byte - 0x80] : Utf8FromLatin1(text.substr(i, 1));
  }
  return utf8;
}

std::string WithReplacements(std::string_view text) {
  std::string utf8;
  while (!text.empty()) {
    const std::size_t length = CharacterLength(text);
    utf8 += length == 0 ? "\uFFFD" : text.substr(0, length);
    text.remove_prefix(std::max(length, std::size_t{1}));
  }
  return utf8;
}

struct EncodingName {
  const char* name;
  Encoding encoding;
};
constexpr EncodingName kEncodings[] = {{"utf-8", Encoding::kUtf8},
                                       {"windows-1252", Encoding::kWindows1252},
                                       {"latin-1", Encoding::kLatin1}};

}  // namespace

std::vector<std::string> DisplayEncodings() {
  std::vector<std::string> names;
  for (const EncodingName& each : kEncodings) names.emplace_back(each.name);
  return names;
}

void SetDisplayEncoding(std::string_view name) {
  displayEncoding = std::ranges::find(kEncodings, name, &EncodingName::name)->encoding;
}

std::string Utf8Text(std::string_view text) {
  switch (displayEncoding) {
    case Encoding::kDetected:
      return IsUtf8(text) ? std::string(text) : Utf8FromWindows1252(text);
    case Encoding::kUtf8:
      return WithReplacements(text);
    case Encoding::kWindows1252:
      return Utf8FromWindows1252(text);
    case Encoding::kLatin1:
      return Utf8FromLatin1(text);
  }
  return {};
}

namespace {

constexpr char kDigits[] = "0123456789ABCDEF";

// Returns the number of a control character, or -1. Control characters 128 to 159 are C2 80 to
// C2 9F.
int ControlNumber(std::string_view character) {
  const unsigned char first = Byte(character, 0);
  if (first < 0x20 || first == 0x7F) return first;
  return first == 0xC2 && Byte(character, 1) < 0xA0 ? Byte(character, 1) : -1;
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

}  // namespace quillctl
