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
      {"a;;b,c;", ';', {"a", "", "b,c", ""}},
      // Quotes stay in the field, wherever in it they stand.
      {R"(x"a,b"y"c,d",e)", ',', {R"(x"a,b"y"c,d")", "e"}},
      // A quote that is not closed ends the fields in front of its own.
      {R"(a,"b","c,d)", ',', {"a", R"("b")"}},
      // A separator that is the quote is looked for first.
      {R"(ab"c,d"e)", '"', {"ab", "c,d", "e"}},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(Fields(each.text, each.separator), each.fields) << each.text;
  }
}

// The first character of the separator counts, and every place of the result is written.
TEST(SplitMappedColumnsTest, GivesTheColumnsOfTheMap) {
  std::string row = "a,b;\t\"c\" ;d";
  std::vector<std::string_view> out(5, "stale");
  const std::vector<std::int32_t> columnMap = {1, 1, INT32_MIN, 1 << 30, 0};
  EXPECT_EQ(SplitMappedColumns(row.data(), columnMap, out, ";,"), 1);
  EXPECT_THAT(out, ElementsAre("c", "c", "", "", "a,b"));
}

}  // namespace
}  // namespace quillkit
