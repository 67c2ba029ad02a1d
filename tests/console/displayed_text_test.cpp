#include "console/displayed_text.h"

#include <gtest/gtest.h>

namespace console {
namespace {

TEST(DisplayedText, KeepsUtf8ConvertsWindows1252AndEscapesControlCharacters) {
  const struct {
    const char* stored;
    const char* displayed;
  } cases[] = {
      {"B\xFCro \x80", "B\xC3\xBCro \xE2\x82\xAC"},              // Windows-1252
      {"B\xC3\xBCro \xE2\x82\xAC", "B\xC3\xBCro \xE2\x82\xAC"},  // UTF-8 of two and three bytes
      {"\xF0\x9F\x93\xA0", "\xF0\x9F\x93\xA0"},                  // of four bytes
      {"\xC3", "\xC3\x83"},                                      // cut after the lead byte
      {"\xC3\xBC\xE2\xA2", "\xC3\x83\xC2\xBC\xC3\xA2\xC2\xA2"},  // cut later
      {"\xC0\xAF", "\xC3\x80\xC2\xAF"},                          // overlong
      {"\xE0\x9F\xBF", "\xC3\xA0\xC5\xB8\xC2\xBF"},              // overlong
      {"\xED\xA0\xB0", "\xC3\xAD\xC2\xA0\xC2\xB0"},              // a surrogate
      {"\xF4\x90\xA0\xA0", "\xC3\xB4\\x90\xC2\xA0\xC2\xA0"},     // above U+10FFFF
      {"\xF5\xA0\xA0\xA0", "\xC3\xB5\xC2\xA0\xC2\xA0\xC2\xA0"},  // no lead byte
      {"~\x1B[2J\n\x7F", "~\\x1B[2J\\x0A\\x7F"},
      {"\x9D[ \xE9", "\\x9D[ \xC3\xA9"},  // undefined in Windows-1252, a control character
      {"\xC2\x9B[", "\\x9B["},            // a control character in UTF-8
  };
  for (const auto& each : cases) EXPECT_EQ(DisplayedText(each.stored), each.displayed);
}

}  // namespace
}  // namespace console
