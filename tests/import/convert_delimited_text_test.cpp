#include "import/convert_delimited_text.h"

#include "tests/import/converter_fixture.h"

namespace quillkit {
namespace {

using namespace std::string_literals;

std::string X(std::size_t size) {
  return std::string(size, 'x');
}

class ConvertDelimitedTextTest : public ConverterTest {
 protected:
  void Expect(const std::string& file, const std::string& script,
              const model::Request& request = {}) {
    SCOPED_TRACE(testing::PrintToString(file.substr(0, 60)));
    ExpectScript(Converter::kDelimited, file, script, request);
  }
};

TEST_F(ConvertDelimitedTextTest, WritesOneLineARow) {
  const struct {
    std::string file;
    std::string script;
  } cases[] = {
      {"", ""},
      {"a,b\nc,d\n", "SE emailab \"a\" \"b\"\nSE emailab \"c\" \"d\"\n"},
      {"a,b\r\nc,d", "SE emailab \"a\" \"b\"\nSE emailab \"c\" \"d\"\n"},
      {"a,b\rc,d\n", "SE emailab \"a\" \"b\rc\"\n"},
      {"a,b\r", "SE emailab \"a\" \"b\"\n"},
      {"a,b  \n", "SE emailab \"a\" \"b\"\n"},
      // Lines of spaces are passed over, lines of other white space are rows.
      {"\n  \n\r\n a , b \n\n", "SE emailab \"a\" \"b\"\n"},
      {"\t\n", "SE emailab \"\" \"\"\n"},
      // Values that are missing or empty are written.
      {"a\n", "SE emailab \"a\" \"\"\n"},
      {",b\n", "SE emailab \"\" \"b\"\n"},
      {"\"a,b\n", "SE emailab \"\" \"\"\n"},
      {"a,\"b\n", "SE emailab \"a\" \"\"\n"},
      {"\"Lee, Ann\",\"say \"\"hi\"\"\"\n", "SE emailab \"Lee, Ann\" \"say hi\"\n"},
      {"a,b\0,c\nd,e\n\0f\n"s, "SE emailab \"a\" \"b\"\nSE emailab \"d\" \"e\"\n"},
      {"\xE9\x80,\xFF\xA0\n", "SE emailab \"\xE9\x80\" \"\xFF\xA0\"\n"},
      {"a%s,b%n\\\n", "SE emailab \"a%s\" \"b%n\\\"\n"},
      // The piece of a long line is a row.
      {X(4094) + "b,c\n", "SE emailab \"" + X(31) + "\" \"\"\nSE emailab \"b\" \"c\"\n"},
      {"a," + X(4092) + "\nb,c\n", "SE emailab \"a\" \"" + X(255) + "\"\nSE emailab \"b\" \"c\"\n"},
  };
  for (const auto& each : cases) Expect(each.file, each.script);
}

// Every field of every book, with a value that just fits and one that is cut.
TEST_F(ConvertDelimitedTextTest, CutsFieldsToTheirWidths) {
  const struct {
    std::int32_t targetBook;
    std::string opening;
    std::vector<std::size_t> widths;
    std::string tail;
  } books[] = {{1, "SE emailab", {31, 255}, "\n"},
               {2, "SE faxab", {31, 79, 10}, "\n"},
               {3, "SE printersab", {31, 255, 31}, "\n"},
               {4, "SE usersab", {31, 15, 255, 255}, " 1 0 0 1\n"}};
  for (const auto& book : books) {
    model::Request request;
    request.targetBook = book.targetBook;
    request.columnMap = {0, 1, 2, 3};
    std::string whole, tooLong, line = book.opening;
    for (const std::size_t width : book.widths) {
      whole += X(width) + ",";
      tooLong += X(width) + "y,";
      line += " \"" + X(width) + "\"";
    }
    line += book.tail;
    Expect(whole + "\n" + tooLong + "\n", line + line, request);
  }
}

TEST_F(ConvertDelimitedTextTest, WritesPairsForAnybodyElse) {
  model::Request request{.isAdmin = false, .clearFirst = true};
  Expect(X(32) + "," + X(256) + "\n,\n", X(31) + "\n" + X(255) + "\n\n\n", request);
  request.targetBook = 2;
  request.columnMap = {0, 1, 2};
  Expect("a," + X(80) + ",c\n", "a\n" + X(79) + "\n", request);
}

// Books that the user cannot fill get the rows as they stand, run together.
TEST_F(ConvertDelimitedTextTest, CopiesRowsWhereItHasNoFormat) {
  const std::string file = "\"a,b\n\n\tc , d \t \n  e  \r\n" + X(4094) + "\n";
  const std::string rows = "\"a,b\tc , d \t  e" + X(4094);
  for (const std::int32_t targetBook : {-1, 0, 5, INT32_MAX, INT32_MIN}) {
    Expect(file, rows, {.isAdmin = true, .clearFirst = true, .targetBook = targetBook});
  }
  for (const std::int32_t targetBook : {-1, 0, 3, 4, 5}) {
    Expect(file, rows, {.isAdmin = false, .clearFirst = true, .targetBook = targetBook});
  }
}

TEST_F(ConvertDelimitedTextTest, ClearsTheBookForTheAdministrator) {
  const char* const words[] = {"emailab", "faxab", "printersab", "usersab"};
  for (std::int32_t targetBook = 1; targetBook <= 4; ++targetBook) {
    Expect("", "CA "s + words[targetBook - 1] + "\n",
           {.clearFirst = true, .targetBook = targetBook});
    Expect("", "", {.isAdmin = false, .clearFirst = true, .targetBook = targetBook});
  }
}

TEST_F(ConvertDelimitedTextTest, DropsTheFirstLineThatIsNotEmpty) {
  const struct {
    std::string file;
    std::string script;
  } cases[] = {
      {"", ""},
      {"\n  \n\r\n", ""},
      {"name,mail", ""},
      {"name,mail\na,b\n", "SE emailab \"a\" \"b\"\n"},
      {"\n   \nname,mail\n\na,b\n", "SE emailab \"a\" \"b\"\n"},
      {"\0name\nmail\na,b\n"s, "SE emailab \"a\" \"b\"\n"},
      {"\t\na,b\n", "SE emailab \"a\" \"b\"\n"},
      {X(4094) + "a,b\n", "SE emailab \"a\" \"b\"\n"},
  };
  for (const auto& each : cases) Expect(each.file, each.script, {.skipHeader = true});
}

TEST_F(ConvertDelimitedTextTest, AMapMayBeShortOrLong) {
  Expect("a,b,c\n", "SE emailab \"\" \"\"\n", {.columnMap = {}});
  Expect("a,b,c\n", "SE emailab \"c\" \"\"\n", {.columnMap = {2}});
  Expect("a,b,c\n", "SE emailab \"c\" \"a\"\n", {.columnMap = {2, 0, 1, 1, 1, 1, 1}});
  Expect("a,b,c\n", "SE usersab \"c\" \"a\" \"\" \"\" 1 0 0 1\n",
         {.targetBook = 4, .columnMap = {2, 0}});
}

}  // namespace
}  // namespace quillkit
