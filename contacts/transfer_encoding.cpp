#include "contacts/transfer_encoding.h"

#include <charconv>
#include <cstddef>
#include <system_error>

namespace contacts {
namespace {

constexpr std::string_view kDigits =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

}  // namespace

std::string EncodeBase64(std::string_view bytes) {
  std::string text;
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    const std::string_view group = bytes.substr(i, 3);
    unsigned bits = 0;
    for (std::size_t k = 0; k < 3; ++k) {
      bits = bits << 8 | (k < group.size() ? static_cast<unsigned char>(group[k]) : 0U);
    }
    for (std::size_t k = 0; k < 4; ++k) {
      text += k <= group.size() ? kDigits[bits >> (18 - 6 * k) & 63] : '=';
    }
  }
  return text;
}

bool DecodeBase64(std::string& bytes, std::string_view text) {
  unsigned bits = 0;
  std::size_t digits = 0;
  std::size_t padding = 0;
  for (const char c : text) {
    if (c == ' ' || c == '\t') continue;
    const std::size_t digit = kDigits.find(c);
    if (c == '=') {
      ++padding;
    } else if (digit == kDigits.npos || padding != 0) {
      return false;
    } else {
      bits = bits << 6 | static_cast<unsigned>(digit);
      ++digits;
      if (digits % 4 != 1) bytes += static_cast<char>(bits >> (6 - 2 * ((digits - 1) % 4)) & 0xFF);
    }
  }
  const bool isWhole = (digits + padding) % 4 == 0 && padding <= 2;
  return isWhole && (padding == 0 || (bits & (padding == 1 ? 3U : 15U)) == 0);
}

bool AppendHexadecimal(std::string& bytes, std::string_view digits) {
  unsigned byte = 0;
  const char* const last = digits.data() + digits.size();
  const auto [end, error] = std::from_chars(digits.data(), last, byte, 16);
  if (digits.size() != 2 || error != std::errc() || end != last) return false;
  bytes += static_cast<char>(byte);
  return true;
}

bool DecodeQuotedPrintable(std::string& bytes, std::string_view text) {
  while (!text.empty()) {
    const std::size_t mark = text.find('=');
    bytes += text.substr(0, mark);
    if (mark == text.npos || mark + 1 == text.size()) return true;
    if (!AppendHexadecimal(bytes, text.substr(mark + 1, 2))) return false;
    text.remove_prefix(mark + 3);
  }
  return true;
}

}  // namespace contacts
