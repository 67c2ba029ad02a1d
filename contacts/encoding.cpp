#include "contacts/encoding.h"

#include <utf8.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>

namespace contacts {
namespace {

struct EncodingName {
  Encoding encoding;
  std::string_view word;
};
constexpr EncodingName kNames[] = {
    {Encoding::kUtf8, "utf-8"},       {Encoding::kUtf16Le, "utf-16le"},
    {Encoding::kUtf16Be, "utf-16be"}, {Encoding::kWindows1252, "windows-1252"},
    {Encoding::kLatin1, "latin-1"},   {Encoding::kLikelyWindows1252, "windows-1252"}};

// The characters 80 to 9F of Windows-1252, 0 for the bytes that have none.
constexpr std::array<char16_t, 32> kWindows1252 = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

constexpr char32_t kReplacement = 0xFFFD;

char32_t Windows1252Character(unsigned char byte) {
  return byte >= 0x80 && byte < 0xA0 ? kWindows1252[byte - 0x80U] : byte;
}

bool IsAscii(std::string_view text) {
  unsigned char bits = 0;
  for (const char c : text) bits |= static_cast<unsigned char>(c);
  return bits < 0x80;
}

// Returns whether the bytes contain a character of UTF-8 that is not ASCII.
bool ContainsUtf8(std::string_view bytes) {
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const auto lead = static_cast<unsigned char>(bytes[i]);
    if (lead < 0xC2 || lead > 0xF4) continue;
    const std::size_t size = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    if (i + size <= bytes.size() && IsUtf8(bytes.substr(i, size))) return true;
  }
  return false;
}

void Append(std::string& text, char32_t character) {
  utf8::unchecked::append(character, std::back_inserter(text));
}

bool AppendUtf16(std::string& text, std::string_view bytes, bool isBigEndian) {
  bool isValid = bytes.size() % 2 == 0;
  char32_t high = 0;  // the first half of a character that has two
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    const char32_t first = static_cast<unsigned char>(bytes[i]);
    const char32_t second = static_cast<unsigned char>(bytes[i + 1]);
    const char32_t unit = isBigEndian ? first << 8U | second : second << 8U | first;
    const bool isLow = unit >= 0xDC00 && unit < 0xE000;
    const bool isHigh = unit >= 0xD800 && unit < 0xDC00;
    if ((high != 0) != isLow) {
      Append(text, kReplacement);
      isValid = false;
    }
    if (!isHigh && !isLow) Append(text, unit);
    if (isLow && high != 0) Append(text, 0x10000 + ((high - 0xD800) << 10U) + (unit - 0xDC00));
    high = isHigh ? unit : 0;
  }
  if (high == 0 && bytes.size() % 2 == 0) return isValid;
  Append(text, kReplacement);
  return false;
}

bool AppendBytes(std::string& text, std::string_view bytes, bool isLatin1) {
  bool isValid = true;
  for (const char byte : bytes) {
    const auto value = static_cast<unsigned char>(byte);
    const char32_t character = isLatin1 ? value : Windows1252Character(value);
    const bool isCharacter = character != 0 || value == 0;
    isValid = isValid && isCharacter;
    Append(text, isCharacter ? character : kReplacement);
  }
  return isValid;
}

}  // namespace

std::string_view WordOf(Encoding encoding) {
  return std::ranges::find(kNames, encoding, &EncodingName::encoding)->word;
}

std::optional<Encoding> EncodingOf(std::string_view word) {
  const auto* found = std::ranges::find(kNames, word, &EncodingName::word);
  return found != std::end(kNames) ? std::optional(found->encoding) : std::nullopt;
}

std::vector<std::string> EncodingWords() {
  std::vector<std::string> words;
  for (const EncodingName& each : kNames) {
    if (each.encoding != Encoding::kLikelyWindows1252) words.emplace_back(each.word);
  }
  return words;
}

Mark FindMark(std::string_view bytes) {
  if (bytes.starts_with(kUtf8Mark)) return {Encoding::kUtf8, kUtf8Mark.size()};
  if (bytes.starts_with("\xFF\xFE")) return {Encoding::kUtf16Le, 2};
  if (bytes.starts_with("\xFE\xFF")) return {Encoding::kUtf16Be, 2};
  return {};
}

bool IsUtf8(std::string_view text) {
  return IsAscii(text) || utf8::is_valid(text.begin(), text.end());
}

bool IsUtf16(Encoding encoding) {
  return encoding == Encoding::kUtf16Le || encoding == Encoding::kUtf16Be;
}

bool AppendUtf8(std::string& text, std::string_view bytes, Encoding from) {
  if (IsUtf16(from)) return AppendUtf16(text, bytes, from == Encoding::kUtf16Be);
  if (from == Encoding::kUtf8 || IsAscii(bytes)) {
    const bool isValid = IsUtf8(bytes);
    if (isValid) {
      text += bytes;
    } else {
      utf8::replace_invalid(bytes.begin(), bytes.end(), std::back_inserter(text), kReplacement);
    }
    return isValid;
  }
  const bool isValid = AppendBytes(text, bytes, from == Encoding::kLatin1);
  return isValid && (from != Encoding::kLikelyWindows1252 || !ContainsUtf8(bytes));
}

void AppendWindows1252Character(std::string& text, char byte) {
  const auto value = static_cast<unsigned char>(byte);
  const char32_t character = Windows1252Character(value);
  Append(text, character != 0 ? character : value);
}

bool AppendWindows1252(std::string& bytes, std::string_view utf8) {
  for (auto at = utf8.begin(); at != utf8.end();) {
    const char32_t character = utf8::unchecked::next(at);
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) {
      bytes += static_cast<char>(character);
      continue;
    }
    const auto* found = std::ranges::find(kWindows1252, character);
    if (found == kWindows1252.end()) return false;
    bytes += static_cast<char>(0x80 + (found - kWindows1252.begin()));
  }
  return true;
}

std::string_view CutUtf8(std::string_view utf8, std::size_t size) {
  if (utf8.size() <= size) return utf8;
  while (size > 0 && utf8::internal::is_trail(utf8[size])) --size;
  return utf8.substr(0, size);
}

}  // namespace contacts
