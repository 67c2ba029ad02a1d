#include "import/convert_directory_export.h"

#include "tests/import/converter_fixture.h"

namespace quillkit {
namespace {

using namespace std::string_literals;

std::string X(std::size_t size) {
  return std::string(size, 'x');
}

class ConvertDirectoryExportTest : public ConverterTest {
 protected:
  void Expect(const std::string& file, const std::string& script,
              const model::Request& request = {}) {
    SCOPED_TRACE(testing::PrintToString(file.substr(0, 60)));
    ExpectScript(Converter::kDirectory, file, script, request);
  }
};

TEST_F(ConvertDirectoryExportTest, WritesTheEntriesThatAreComplete) {
  const std::string annBox = "SE emailab \"Ann\" \"box\"\n";
  const struct {
    std::string file;
    std::string script;
  } cases[] = {
      {"", ""},
      {"dn: x\ncn: Ann\nmail: box\n", annBox},
      {"dn:\nmail:box\ncn:Ann\n", annBox},
      {"dn: x\r\ncn: Ann\r\nmail: box\r\n", annBox},
      {"dn: x\n\n\ncn: Ann\nsn: Lee\n\nmail: box\n", annBox},
      // Without a newline at its end the file loses its last character, be it of a carriage return.
      {"dn: x\ncn: Ann\nmail: box1", annBox},
      {"dn: x\ncn: Ann\nmail: box\r", annBox},
      {"dn: x\ncn: Ann\rmail: box\n", ""},
      // Not an entry: nothing open, a part missing, another spelling, not in the first column.
      {"cn: Ann\nmail: box\n", ""},
      {"dn: x\ncn: Ann\n", ""},
      {"dn: x\nmail: box\n", ""},
      {"dn: x\nCN: Ann\nmail: box\n", ""},
      {"dn: x\n cn: Ann\nmail: box\n", ""},
      {" dn: x\ncn: Ann\nmail: box\n", ""},
      {"dn\ncn: Ann\nmail: box\n", ""},
      // The first of each counts, and nothing behind the second.
      {"dn: x\nmail: box\nmail: b2\ncn: Ann\ncn: Bob\nmail: b3\n", annBox},
      {"dn: x\ncn: Ann\ncn: Bob\nmail: box\n", annBox},
      {"dn: x\ncn: Ann\nmail: box\ncn: Bob\nmail: b2\n", annBox},
      {"dn: x\ncn: Ann\nmail: box\ndn: y\ncn: Bob\nmail: b2\n",
       annBox + "SE emailab \"Bob\" \"b2\"\n"},
      // "dn:" drops what there was, in a value too, but opens nothing there.
      {"dn: x\ncn: Bob\ndn: y\ncn: Ann\nmail: box\n", annBox},
      {"dn: x\ncn: Bob\ndescription: adn:b\nmail: b2\ncn: Ann\n", "SE emailab \"Ann\" \"b2\"\n"},
      {"dn: x\ncn: Bob\nmail: dn:b2\ncn: Ann\nmail: box\n", annBox},
      {"dn: x\ncn: Bob dn:\ncn: Ann\nmail: box\n", annBox},
      {"description: adn:b\ncn: Ann\nmail: box\n", ""},
      {"dn: x\nDN: d n: dn\ncn: Ann\nmail: box\n", annBox},
      // Values: blanks in front go, nothing else does.
      {"dn: x\ncn:   Ann\nmail:    box\n", annBox},
      {"dn: x\ncn: \tAnn \nmail:box \n", "SE emailab \"\tAnn \" \"box \"\n"},
      {"dn: x\ncn:: QW5u\nmail:: Ym94\n", "SE emailab \": QW5u\" \": Ym94\"\n"},
      {"dn: x\ncn: \"Ann\"\nmail: \"b,%s\"\n", "SE emailab \"\"Ann\"\" \"\"b,%s\"\"\n"},
      {"dn: x\ncn:\nmail:   \n", "SE emailab \"\" \"\"\n"},
      {"dn: x\ncn: \xE9\xFF\nmail: \xA0\n", "SE emailab \"\xE9\xFF\" \"\xA0\"\n"},
      // A NUL ends its line: the character in front of it is the last one.
      {"dn: x\ncn: Ann1\0x\nmail: box\n"s, annBox},
      {"dn: x\n\0dn:\ncn: Ann\nmail: box\n"s, annBox},
      {"dn:\0\ncn: Ann\nmail: box\n"s, ""},
  };
  for (const auto& each : cases) Expect(each.file, each.script);
}

// The cut comes before the blanks go.
TEST_F(ConvertDirectoryExportTest, CutsValues) {
  const struct {
    std::string name;
    std::string address;
    std::string script;
  } cases[] = {
      {X(31), X(255), "SE emailab \"" + X(31) + "\" \"" + X(255) + "\"\n"},
      {X(32), X(256), "SE emailab \"" + X(31) + "\" \"" + X(255) + "\"\n"},
      {"   " + X(31), "   " + X(255), "SE emailab \"" + X(28) + "\" \"" + X(252) + "\"\n"},
      {std::string(31, ' ') + "a", std::string(255, ' ') + "b", "SE emailab \"\" \"\"\n"},
  };
  for (const auto& each : cases) {
    Expect("dn:\ncn:" + each.name + "\nmail:" + each.address + "\n", each.script);
  }
}

// Where in a long line "dn:" stands does not matter, and not how the line falls into eights.
TEST_F(ConvertDirectoryExportTest, FindsTheEntryMarkAnywhereInALine) {
  std::string file, script;
  const auto addEntry = [&](const std::string& name, const std::string& line) {
    file += "dn:\ncn:" + name + "\n" + line + "\nmail: box\n";
  };
  for (std::size_t length = 3; length < 40; ++length) {
    for (std::size_t place = 0; place + 3 <= length; ++place) {
      const std::string name = std::to_string(length) + '.' + std::to_string(place);
      std::string line(length, 'x');
      line.replace(place, 3, "dn:");
      addEntry(name, line);
      line[place] = 'c';
      addEntry(name, line);
      script += "SE emailab \"" + name + "\" \"box\"\n";
    }
  }
  Expect(file, script);
}

// A piece of a long line is a line, and loses its last character.
TEST_F(ConvertDirectoryExportTest, ReadsLongLinesInPieces) {
  const std::string annBox = "SE emailab \"Ann\" \"box\"\n";
  Expect("dn:\ncn: Ann\n" + X(4093) + "\nmail: box\n", annBox);
  Expect("dn:\ncn: Ann\n" + X(4094) + "\nmail: box\n", annBox);
  Expect("dn:\ncn: Ann\n" + X(4094) + "mail: box\n", annBox);
  Expect("dn:\ncn: Ann\n" + X(4093) + "mail: box\n", "");
  Expect("dn:\ncn: Ann\n" + X(4095) + "mail: box\n", "");
  Expect("dn:\ncn: Bob\n" + X(4090) + "dn:\ncn: Ann\nmail: box\n", annBox);
  Expect("dn:\ncn: Bob\n" + X(4091) + "dn:\ncn: Ann\nmail: box\n", "SE emailab \"Bob\" \"box\"\n");
  Expect("dn:\ncn: Bob\n" + X(4094) + "dn:\ncn: Ann\nmail: box\n", annBox);
}

TEST_F(ConvertDirectoryExportTest, OpensWithAWordlessClearLine) {
  const std::string file = "dn: x\ncn: " + X(31) + "\nmail: box\n";
  const std::string line = "SE emailab \"" + X(30) + "\" \"box\"\n";
  Expect(file, "CA %s\n" + line, {.clearFirst = true});
  Expect(file, line, {.targetBook = 2});
  Expect("", "CA %s\n", {.clearFirst = true});
  Expect(file, X(30) + "\nbox\n", {.isAdmin = false, .clearFirst = true});
  Expect("dn:\ncn:\nmail:" + X(256) + "\n", "\n" + X(255) + "\n", {.isAdmin = false});
}

}  // namespace
}  // namespace quillkit
