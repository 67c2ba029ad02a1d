#include "import/convert_mail_server_export.h"

#include "tests/import/converter_fixture.h"

namespace quillkit {
namespace {

using namespace std::string_literals;

std::string X(std::size_t size) {
  return std::string(size, 'x');
}

std::string Entry(const std::string& name, const std::string& address) {
  return "SE emailab \"" + name + "\" \"" + address + "\"\n";
}

class ConvertMailServerExportTest : public ConverterTest {
 protected:
  void Expect(const std::string& file, const std::string& script,
              const model::Request& request = {}) {
    SCOPED_TRACE(testing::PrintToString(file.substr(0, 60)));
    ExpectScript(Converter::kMailServer, file, script, request);
  }
};

TEST_F(ConvertMailServerExportTest, ReadsPlainRows) {
  const struct {
    std::string file;
    std::string script;
  } cases[] = {
      {"", ""},
      {"\n", ""},
      {"Mailbox,Ann,Lee,Ann Lee,x,%SMTP:box1%X400:c\n", Entry("Ann Lee", "box1")},
      {"Mailbox,Ann,Lee,Ann Lee,SMTP:box1,x\r\n", Entry("Ann Lee", "box1")},
      {"Mailbox,Ann,Lee,Ann Lee,\"x SMTP:box1\",x\n", Entry("Ann Lee", "box1")},
      {"Mailbox,a,b, n ,SMTP: box 1 ,\n", Entry(" n ", " box 1 ")},
      // Rows of other things, and rows that say it otherwise.
      {"Obj-Class,First,Last,Name,x,SMTP:box1%\n", ""},
      {"Remote,a,b,n,SMTP:box1%\n", ""},
      {"mailbox,a,b,n,SMTP:box1%\n", ""},
      {"Mailbox ,a,b,n,SMTP:box1%\n", ""},
      {"\"Mailbox\",a,b,n,SMTP:box1%\n", ""},
      {"Mailbox\"\",a,b,n,SMTP:box1%\n", ""},
      {"\"Mailbox,a,b,n,SMTP:box1%\n", ""},
      // Only "SMTP:" behind the name counts, the first one.
      {"Mailbox,a,b,n,smtp:box1%\n", ""},
      {"Mailbox,a,SMTP:box1%,n,x\n", ""},
      {"Mailbox,a,b,SMTP:box1%,x\n", ""},
      {"Mailbox,a,b,n,smtp:box0%SMTP:box1%SMTP:box2%\n", Entry("n", "box1")},
      {"Mailbox,a,b,n,SMTP:%SMTP:box1%\n", Entry("n", "")},
      {"Mailbox,a,b,n,SSMTP:SMTP:box1%\n", Entry("n", "SMTP:box1")},
      // An address that nothing ends takes the newline along.
      {"Mailbox,a,b,n,SMTP:box1\nMailbox,a,b,n,SMTP:box2",
       Entry("n", "box1\n") + Entry("n", "box2")},
      {"Mailbox,a,b,n,SMTP:box1\r\n", Entry("n", "box1\n")},
      {"Mailbox,a,b,n,SMTP:box1\r", Entry("n", "box1\r")},
      {"Mailbox,a,b,n,SMTP:\n", Entry("n", "\n")},
      {"Mailbox,a,b,n,SMTP:", Entry("n", "")},
      // A NUL ends its line; all other bytes are text.
      {"Mailbox,a,b,n,SMTP:bo\0x1%\n\0Mailbox,a,b,n,SMTP:box2%\n"s, Entry("n", "bo")},
      {"Mailbox,a,b,\xE9\x80,SMTP:\xFF%\n", Entry("\xE9\x80", "\xFF")},
  };
  for (const auto& each : cases) Expect(each.file, each.script);
}

// Where a field before the name is quoted or empty, the name is another field.
TEST_F(ConvertMailServerExportTest, ReadsOtherRowsAsTheWalkFallsOut) {
  const struct {
    std::string row;
    std::string name;
  } cases[] = {
      {"Mailbox,\"a\",b,n,x", "b"},
      {"Mailbox,a,\"b\",n,x", ""},
      {"Mailbox,a,b,\"n\",x", "n"},
      {"Mailbox,a,b,\"n, m\",x", "n, m"},
      {"Mailbox,\"a\",\"b\",n,x", "b"},
      {"Mailbox,a,\"b, c\",n,x", ""},
      {"Mailbox,a,b,\"n\"m,x", "n"},
      {"Mailbox,a,b,\"n\"\"m\",x", "n"},
      {"Mailbox,a,b,n\"o,p\"q,x", "n\"o,p\"q"},
      {"Mailbox,a,\",b\",n,x", "b"},
      {"Mailbox,a,\",,b\",n,x", ",b"},
      {"Mailbox,,b,n,x", "b"},
      {"Mailbox,,,n,x", ""},
      {"Mailbox,a,,n,x", "n"},
      {"Mailbox,a,b,,x", ""},
      {"Mailbox,\"\",b,n,x", "b"},
      {"Mailbox,a,b,\"\",x", ""},
  };
  for (const auto& each : cases) Expect(each.row + ",SMTP:box1%\n", Entry(each.name, "box1"));
}

TEST_F(ConvertMailServerExportTest, RowsThatEndTooSoonGiveNoEntry) {
  const char* const rows[] = {
      "Mailbox",
      "Mailbox,",
      "Mailbox,a",
      "Mailbox,a,",
      "Mailbox,a,b",
      "Mailbox,a,b,",
      "Mailbox,a,b,n",
      "Mailbox,a,b,n SMTP:box1%",
      "Mailbox,,",
      "Mailbox,,,",
      "Mailbox,,,,SMTP:box1%",
      "Mailbox,\"a\"",
      "Mailbox,a,\"b\"",
      "Mailbox,a,b,\"n\"",
      "Mailbox,a,b,\"n",
      "Mailbox,a,\"b,n,SMTP:box1%",
  };
  for (const char* row : rows) {
    Expect(row, "");
    Expect(row + "\n"s, "");
  }
  // Text behind the closing quote of a row's last field is text behind the name.
  Expect("Mailbox,a,b,\"n\"SMTP:box1%", Entry("n", "box1"));
}

TEST_F(ConvertMailServerExportTest, CutsNamesAndAddresses) {
  for (const std::size_t extra : {0U, 1U, 100U}) {
    Expect("Mailbox,a,b," + X(31 + extra) + ",SMTP:" + X(255 + extra) + "%\n",
           Entry(X(31), X(255)));
  }
  Expect("Mailbox,a,b,n,SMTP:" + X(255) + "\n", Entry("n", X(255)));
}

// A piece of a long line is a row.
TEST_F(ConvertMailServerExportTest, ReadsLongLinesInPieces) {
  const std::string row = "Mailbox,a,b,n,";
  for (const std::size_t length : {4093U, 4094U, 4095U}) {
    Expect(row + X(length - row.size()) + "SMTP:box1%\n", "");
  }
  Expect(row + X(4094 - row.size() - 9) + "SMTP:box1" + "box1%\n", Entry("n", "box1"));
  Expect(row + X(4094 - row.size()) + row + "SMTP:box1%\n", Entry("n", "box1"));
  Expect(row + X(4093 - row.size()) + "\n" + row + "SMTP:box1%\n", Entry("n", "box1"));
}

TEST_F(ConvertMailServerExportTest, OpensWithAWordlessClearLine) {
  const std::string file = "Mailbox,a,b,n,SMTP:box1%\n";
  Expect(file, "CA %s\n" + Entry("n", "box1"), {.clearFirst = true});
  Expect(file, Entry("n", "box1"), {.targetBook = 3});
  Expect("", "CA %s\n", {.clearFirst = true});
  Expect(file, "n\nbox1\n", {.isAdmin = false, .clearFirst = true});
  Expect("Mailbox,a,b," + X(32) + ",SMTP:" + X(256), X(31) + "\n" + X(255) + "\n",
         {.isAdmin = false});
}

}  // namespace
}  // namespace quillkit
