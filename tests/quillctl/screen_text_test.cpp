#include <gtest/gtest.h>

#include <sstream>

#include "quillctl/displayed_text.h"
#include "quillctl/text_table.h"

namespace quillctl {
namespace {

struct TextCase {
  const char* stored;
  const char* shown;
};

TEST(DisplayedText, ShowsUtf8AsItIsAndAnythingElseAsLatin1) {
  const TextCase cases[] = {
      {"plain ~", "plain ~"},
      {"B\xFCro", "B\xC3\xBCro"},                                // Latin-1
      {"B\xC3\xBCro \xE2\x82\xAC", "B\xC3\xBCro \xE2\x82\xAC"},  // UTF-8 of two, three bytes
      {"\xF0\x9F\x93\xA0", "\xF0\x9F\x93\xA0"},                  // and four
      {"\xC3", "\xC3\x83"},                                      // cut after its lead byte
      {"\xC3\xBC\xE2\x82", "\xC3\x83\xC2\xBC\xC3\xA2\\x82"},     // one cut makes all Latin-1
      {"\xC0\xAF", "\xC3\x80\xC2\xAF"},                          // overlong
      {"\xE0\x9F\xBF", "\xC3\xA0\\x9F\xC2\xBF"},                 // overlong
      {"\xED\xA0\xB0", "\xC3\xAD\xC2\xA0\xC2\xB0"},              // a surrogate
      {"\xF4\x90\xA0\xA0", "\xC3\xB4\\x90\xC2\xA0\xC2\xA0"},     // above U+10FFFF
      {"\xF5\xA0\xA0\xA0", "\xC3\xB5\xC2\xA0\xC2\xA0\xC2\xA0"},  // no lead byte
  };
  for (const TextCase& each : cases) EXPECT_EQ(DisplayedText(each.stored), each.shown);
}

TEST(DisplayedText, LetsNoControlCharacterThrough) {
  EXPECT_EQ(DisplayedText("a\x1B[2J\nb\x7F"), "a\\x1B[2J\\x0Ab\\x7F");
  EXPECT_EQ(DisplayedText("\x9B"
                          "2J \xE9"),
            "\\x9B"
            "2J \xC3\xA9");  // as Latin-1
  EXPECT_EQ(DisplayedText("\xC2\x9B"
                          "2J"),
            "\\x9B"
            "2J");  // the same as UTF-8
}

TEST(TextTable, AlignsByCharactersAndLeavesNoBlankAtALinesEnd) {
  TextTable table({"Name", "Number", "Third"});
  EXPECT_TRUE(table.IsEmpty());
  table.AddRow({"J\xF6rdis", "1", ""});
  table.AddRow({"Al", "22222222", "x"});
  EXPECT_FALSE(table.IsEmpty());
  std::ostringstream out;
  table.Print(out);
  EXPECT_EQ(out.str(),
            "Name    Number    Third\n"
            "J\xC3\xB6rdis  1\n"
            "Al      22222222  x\n");
}

}  // namespace
}  // namespace quillctl
