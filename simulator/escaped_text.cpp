#include "simulator/escaped_text.h"

#include <algorithm>

#include "simulator/whole_number.h"

namespace quillbox {
namespace {

constexpr char kDigits[] = "0123456789ABCDEF";

bool IsPlain(char c, std::string_view also) {
  return c >= ' ' && c <= '~' && c != '\\' && (also.empty() || also.find(c) == also.npos);
}

// Decodes an escape: the text begins with its letter, "x" or "z". Appends its bytes and removes it
// from the text. Returns false if it is not an escape.
bool DecodeEscape(std::string_view& text, std::string& bytes, std::size_t limit) {
  if (text.empty()) return false;
  const char letter = text.front();
  text.remove_prefix(1);
  if (letter == 'x' && text.size() >= 2) {
    const auto byte = WholeNumber<unsigned char>(text.substr(0, 2), 16);
    if (!byte) return false;
    text.remove_prefix(2);
    bytes += static_cast<char>(*byte);
    return true;
  }
  if (letter != 'z') return false;
  const std::size_t end = std::min(text.find(';'), text.size());
  const auto count = WholeNumber<std::size_t>(text.substr(0, end));
  if (!count || end == text.size() || *count > limit) return false;
  text.remove_prefix(end + 1);
  bytes.append(*count, '\0');
  return true;
}

}  // namespace

std::string HexadecimalByte(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return {kDigits[byte >> 4], kDigits[byte & 0xF]};
}

std::string Escaped(std::string_view bytes, std::string_view also) {
  std::string text;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const std::size_t zeros = std::min(bytes.find_first_not_of('\0', i), bytes.size()) - i;
    if (zeros > 1) {
      text += "\\z" + std::to_string(zeros) + ';';
      i += zeros - 1;
    } else if (IsPlain(bytes[i], also)) {
      text += bytes[i];
    } else {
      text += "\\x" + HexadecimalByte(bytes[i]);
    }
  }
  return text;
}

std::optional<std::string> Unescaped(std::string_view text, std::size_t limit) {
  constexpr std::size_t kReserved = 1024;  // more than any record
  std::string bytes;
  bytes.reserve(std::min(limit, kReserved));
  while (!text.empty()) {
    const auto end = std::ranges::find_if_not(text, [](char c) { return IsPlain(c, {}); });
    const auto plain = static_cast<std::size_t>(end - text.begin());
    bytes.append(text.substr(0, plain));
    text.remove_prefix(plain);
    if (bytes.size() > limit) return std::nullopt;
    if (text.empty()) break;
    const bool isEscape = text.front() == '\\';
    text.remove_prefix(1);
    if (!isEscape || !DecodeEscape(text, bytes, limit) || bytes.size() > limit) return std::nullopt;
  }
  return bytes;
}

}  // namespace quillbox
