#include "import/text_routines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "import/convert_delimited_text.h"

namespace quillkit {
namespace {

using testing::ElementsAre;

// All fields of a text, taken as a caller of the splitter does.
std::vector<std::string> Fields(std::string text, char separator) {
  std::vector<std::string> fields;
  for (TextSpan field = NextQuotedField(text.data(), separator); field.data() != nullptr;
       field = NextQuotedField(nullptr, separator)) {
    fields.emplace_back(View(field));
    EXPECT_EQ(field.data()[field.size()], '\0');
  }
  EXPECT_EQ(NextQuotedField(nullptr, separator).data(), nullptr) << "they have ended for good";
  return fields;
}

TEST(NextQuotedFieldTest, SplitsOutsideQuotes) {
  const struct {
    const char* text;
    char separator;
    std::vector<std::string> fields;
  } cases[] = {
      {"", ',', {""}},
      {"a", ',', {"a"}},
      {"a,b", ',', {"a", "b"}},
      {",", ',', {"", ""}},
      {"a,,b,", ',', {"a", "", "b", ""}},
      {"a;b,c", ';', {"a", "b,c"}},
      {"a\xFF"
       "b",
       '\xFF',
       {"a", "b"}},
      // Quotes stay in the field, wherever in it they stand.
      {R"("a,b",c)", ',', {R"("a,b")", "c"}},
      {R"(x"a,b"y"c,d",e)", ',', {R"(x"a,b"y"c,d")", "e"}},
      {R"("","",)", ',', {R"("")", R"("")", ""}},
      {R"("a""b,c",d)", ',', {R"("a""b,c")", "d"}},
      // A quote that is not closed ends the fields in front of its own.
      {R"(")", ',', {}},
      {R"("a,b)", ',', {}},
      {R"(a,b"c,d)", ',', {"a"}},
      {R"(a,"b","c,d)", ',', {"a", R"("b")"}},
      // A separator that is the quote is looked for first.
      {R"(ab"c,d"e)", '"', {"ab", "c,d", "e"}},
      {R"("")", '"', {"", "", ""}},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(Fields(each.text, each.separator), each.fields) << each.text;
  }
}

TEST(NextQuotedFieldTest, AnUnclosedQuoteLeavesTheTextAsItWas) {
  std::string text = R"(a,b"c,d)";
  NextQuotedField(text.data(), ',');
  EXPECT_EQ(NextQuotedField(nullptr, ',').data(), nullptr);
  EXPECT_STREQ(text.data() + 2, R"(b"c,d)");
}

TEST(NextQuotedFieldTest, ATextBeginsAnewAndSeparatorsMayChange) {
  std::string first = "a,b,c";
  std::string second = R"(d;e"f,g)";
  EXPECT_EQ(View(NextQuotedField(first.data(), ',')), "a");
  EXPECT_EQ(View(NextQuotedField(second.data(), ';')), "d");
  EXPECT_EQ(View(NextQuotedField(nullptr, '"')), "e");
  EXPECT_EQ(View(NextQuotedField(nullptr, ',')), "f");
  EXPECT_EQ(View(NextQuotedField(nullptr, ',')), "g");
  EXPECT_STREQ(first.c_str() + 2, "b,c");
}

TEST(StripCharTest, RemovesEveryOccurrence) {
  const struct {
    std::string text;
    std::string left;
  } cases[] = {{"", ""},         {"abc", "abc"}, {"xx", ""},
               {"xaxxbx", "ab"}, {"axb", "ab"},  {"a\xFFx\xFF", "a\xFF\xFF"}};
  for (const auto& each : cases) {
    std::string text = each.text;
    EXPECT_EQ(View(StripChar('x', text)), each.left) << each.text;
  }
}

TEST(SplitMappedColumnsTest, GivesTheColumnsOfTheMap) {
  const struct {
    const char* row;
    std::vector<std::int32_t> columnMap;
    std::vector<std::string> out;
  } cases[] = {
      {"a,b", {0, 1}, {"a", "b"}},
      {"a,b", {1, 0}, {"b", "a"}},
      {"a,b,c,d,e", {4, 4, 0, 2}, {"e", "e", "a", "c"}},
      {"a,b", {}, {}},
      {"a,b", {-1, 1}, {"", "b"}},
      {"a,b", {-2, 2, 1 << 30, INT32_MIN}, {"", "", "", ""}},
      {"", {0, 1}, {"", ""}},
      // The row's end, and white space at the ends of a value.
      {"a,b\n", {0, 1}, {"a", "b"}},
      {"a,b\r", {0, 1}, {"a", "b"}},
      {" a b ,\t\v\f\r\nb\t ", {0, 1}, {"a b", "b"}},
      {"\xA0"
       "a,\x1F",
       {0, 1},
       {"\xA0"
        "a",
        "\x1F"}},
      // Quotes go wherever they stand, and white space inside them with them.
      {R"("Lee, Ann",box1)", {0, 1}, {"Lee, Ann", "box1"}},
      {R"("  a ", b "c" d )", {0, 1}, {"a", "b c d"}},
      {R"(""" ""a"" """,b)", {0, 1}, {"a", "b"}},
      {R"(a" "b,"",)", {0, 1, 2}, {"a b", "", ""}},
      // An unclosed quote loses the rest of the row.
      {R"(a,b,"c,d,e)", {0, 1, 2, 3}, {"a", "b", "", ""}},
      {R"("a,b)", {0, 1}, {"", ""}},
  };
  for (const auto& each : cases) {
    std::string row = each.row;
    std::vector<std::string_view> out(each.columnMap.size(), "stale");
    EXPECT_EQ(SplitMappedColumns(row.data(), each.columnMap, out, ","), 1);
    EXPECT_TRUE(std::equal(out.begin(), out.end(), each.out.begin(), each.out.end()))
        << each.row << " gave " << testing::PrintToString(out);
  }
}

TEST(SplitMappedColumnsTest, TheFirstCharacterOfTheSeparatorCounts) {
  std::string row = "a,b;c,d";
  std::string_view out[2];
  SplitMappedColumns(row.data(), std::vector<std::int32_t>{0, 1}, out, ";,");
  EXPECT_THAT(out, ElementsAre("a,b", "c,d"));
}

}  // namespace
}  // namespace quillkit
