// The converters' rules that surprise, by example; the rest follows the model.

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

const std::string kAnnBox = Entry("Ann", "box");

class ConversionExamples : public ConverterTest {
 protected:
  struct Example {
    std::string file;
    std::string script;
  };

  void Expect(Converter converter, const std::vector<Example>& examples,
              const model::Request& request = {}) const {
    for (const Example& each : examples) {
      SCOPED_TRACE(testing::PrintToString(each.file.substr(0, 60)));
      ExpectScript(converter, each.file, each.script, request);
    }
  }
};

// --- Delimited text ---

TEST_F(ConversionExamples, DelimitedRows) {
  Expect(Converter::kDelimited,
         {
             {"Ann,box\r\n\"Lee, Ann\",\"say \"\"hi\"\"\"", kAnnBox + Entry("Lee, Ann", "say hi")},
             // Lines of spaces are passed over, lines of other white space are rows.
             {"\n  \n\r\n Ann , box \n\n", kAnnBox},
             {"\t\n", Entry("", "")},
             // An unclosed quote loses its value and those behind it.
             {"Ann,\"box\n", Entry("Ann", "")},
             // The piece of a long line is a row.
             {X(4094) + "Ann,box\n", Entry(X(31), "") + kAnnBox},
         });
  Expect(Converter::kDelimited, {{"\n  \nname,mail\n\nAnn,box\n", kAnnBox}, {"name,mail", ""}},
         {.skipHeader = true});
  Expect(Converter::kDelimited, {{"a,b,c\n", Entry("c", "")}}, {.columnMap = {2}});
}

// --- Mail-server export ---

TEST_F(ConversionExamples, MailServerRows) {
  Expect(Converter::kMailServer,
         {
             {"Mailbox,a,b,Ann,x,%SMTP:box%X400:c\n", kAnnBox},
             {"\"Mailbox\",a,b,n,SMTP:box%\n", ""},
             // Only "SMTP:" behind the name counts, the first one.
             {"Mailbox,a,b,SMTP:box%,x\n", ""},
             {"Mailbox,a,b,Ann,smtp:box0%SMTP:box,SMTP:box2%\n", kAnnBox},
             // An address that nothing ends takes the newline along.
             {"Mailbox,a,b,n,SMTP:box\r\n", Entry("n", "box\n")},
             {"Mailbox,a,b," + X(32) + ",SMTP:" + X(256), Entry(X(31), X(255))},
             // Text behind the closing quote of a row's last field is text behind the name.
             {"Mailbox,a,b,\"Ann\"SMTP:box", kAnnBox},
             {"Mailbox,a,b,\"Ann,SMTP:box%\n", ""},
         });
  const model::Request clear{.clearFirst = true};
  Expect(Converter::kMailServer, {{"Mailbox,a,b,Ann,SMTP:box%\n", "CA %s\n" + kAnnBox}}, clear);
  Expect(Converter::kDirectory, {{"dn:\ncn:Ann\nmail:box\n", "CA %s\n" + kAnnBox}}, clear);
}

}  // namespace
}  // namespace quillkit
