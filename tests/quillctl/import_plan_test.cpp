#include "quillctl/import_plan.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "quillctl/column_map.h"
#include "quillctl/failures.h"
#include "quillctl/import_report.h"
#include "tests/support/scratch_folder.h"

namespace quillctl {
namespace {

using quillkit::ReadBytes;
using quillkit::ScratchFolder;
using testing::ElementsAre;
using testing::HasSubstr;

// The text between its two NULs too.
template <std::size_t N>
std::string Bytes(const char (&text)[N]) {
  return {text, N - 1};
}

using Columns = std::vector<std::int32_t>;

Columns ColumnsOf(std::string_view map, const char* book) {
  return ColumnMap(map, FindBook(book).front()).Columns({"Full Name", "E-mail", "Fax", "Fax"});
}

TEST(ColumnMap, TakesNumbersFieldsAndHeadings) {
  EXPECT_EQ(ColumnsOf("2,10", "email"), (Columns{2, 10}));
  EXPECT_EQ(ColumnsOf("0,-1,2147483647", "fax"), (Columns{0, -1, 2147483647}));
  EXPECT_EQ(ColumnsOf("third=3,name=0", "fax"), (Columns{0, -1, 3}));
  EXPECT_EQ(ColumnsOf("address=E-mail,name=Full Name", "email"), (Columns{0, 1}));
  EXPECT_EQ(ColumnsOf("name=Full Name,password=-1,fourth=7", "users"), (Columns{0, -1, -1, 7}));
}

TEST(ColumnMap, RefusesWhatItCannotTake) {
  for (const char* map : {"",
                          ",",
                          "1,",
                          ",1",
                          "1,,2",
                          "1, 2",
                          "-2,1",
                          "1x,1",
                          "+1,1",
                          "0x1,1",
                          "2147483648,1",
                          "1",
                          "1,2,3",
                          "name",
                          "name=",
                          "=1",
                          "name=1,",
                          "name=1,name=2",
                          "name=1,number=2",
                          "Name=1",
                          "name=-2",
                          "name=2147483648",
                          "name=1,\"address=2",
                          "name=Fax",
                          "name=E-Mail"}) {
    EXPECT_THROW(ColumnsOf(map, "email"), UsageError) << map;
  }
  try {
    ColumnsOf("name=Phone", "email");
  } catch (const UsageError& error) {
    EXPECT_THAT(error.what(),
                HasSubstr(R"("Phone"; the file's headings: "Full Name", "E-mail", )"));
  }
}

struct RequestCase {
  ImportRequest request;
  bool fits;
};

TEST(ImportPlan, RefusesAnOptionWithoutAMeaning) {
  const ScratchFolder folder;
  const std::string file = folder.Write("rows", "Ann,box1\n");
  const RequestCase cases[] = {
      {{file, "csv", "", "0,1"}, true},
      {{file, "csv", "email", "0,1,2"}, false},
      {{file, "csv", "fax", "0,1,2", true}, true},
      {{file, "csv", "printers", "0,1"}, false},
      {{file, "csv", "users", "0,1,2,3"}, true},
      {{file, "csv", "", ""}, false},
      {{file + "s", "csv", "", "0,1"}, false},
      {{folder.Path().string(), "csv", "", "0,1"}, false},
      {{file, "directory", "", ""}, true},
      {{file, "directory", "", "", false, true}, false},
      {{file, "directory", "email", ""}, false},
      {{file, "mail", "", "0,1"}, false},
      {{file, "mail", "", "", true}, false},
      {{file, "script", "", ""}, true},
      {{file, "script", "", "", false, true}, false},
      {{file, "script", "", "", false, false, 5, 20, file + "s"}, false},
  };
  for (const RequestCase& each : cases) {
    SCOPED_TRACE(each.request.format + ' ' + each.request.target + ' ' + each.request.map);
    if (each.fits) {
      EXPECT_NO_THROW(ImportPlan(each.request, true));
    } else {
      EXPECT_THROW(ImportPlan(each.request, true), UsageError);
    }
  }
  EXPECT_THROW(ImportPlan({file, "csv", "users", "0,1,2,3"}, false), UsageError);
  EXPECT_THROW(ImportPlan({file, "csv", "", "0,1", false, true}, false), UsageError);
  const std::string twoLines = folder.Write("old", "Name,Mail\rAnn,box1\nBob,box2\n");
  EXPECT_THROW(ImportPlan({twoLines, "csv", "", "0,1", true}, true), UsageError);
}

// What a file comes to: "line: fault" for each row that is not sent, and the script of the others.
struct RowsCase {
  ImportRequest request;
  bool isAdmin;
  std::string text;
  std::vector<std::string> faults;
  std::string script;
};

const std::string kLong(4094, 'z');
const std::string kBare = "a carriage return inside a line";
const std::string k31(31, 'n');
const std::string k255(255, 'a');

const RowsCase kCases[] = {
    // Line ends, blank lines, quotes, white space; columns that are not there.
    {{"", "csv", "", "0,1"},
     true,
     "\xEF\xBB\xBF \"Lee, Ann\" , box1\r\n \t\n\nBob\nCy,\"box3\nDi,,x\nEd, "
     "\"\"\n,box6\n\"Fay,box7\n"
     "Gus,box8,\"open",
     {"4: the row has no column 1", "5: a double quote is not closed", "6: the address is empty",
      "7: the address is empty", "8: the name is empty", "9: a double quote is not closed"},
     "SE emailab \"Lee, Ann\" \"box1\"\nSE emailab \"Gus\" \"box8\"\n"},
    // What the converter would cut: at a field's width, at a NUL, and in pieces of a long line.
    {{"", "csv", "", "0,1"},
     true,
     k31 + "," + k255 + "\nm" + k31 + ",b\nc," + k255 + "a\n" + Bytes("d,\0e\n") + kLong +
         ",f\ng,h" + kLong + "\ni,j",
     {"2: the name is longer than 31 characters", "3: the address is longer than 255 characters",
      "4: a NUL character inside a line", "5: the line is longer than 4093 characters",
      "6: the line is longer than 4093 characters"},
     "SE emailab \"" + k31 + "\" \"" + k255 + "\"\nSE emailab \"i\" \"j\"\n"},
    // A field that the map leaves out may be empty; a name is one entry's.
    {{"", "csv", "fax", "name=Who,third=1", false, true},
     true,
     "\nWho,Third\nAnn,1\nBob,12345678901\nAnn,2\nann,3",
     {"4: the third is longer than 10 characters", "5: the name is already used in line 3"},
     "CA faxab\nSE faxab \"Ann\" \"\" \"1\"\nSE faxab \"ann\" \"\" \"3\"\n"},
    // A pair of lines has no third field and no clear line.
    {{"", "csv", "fax", "0,1,-1", true},
     false,
     "head\nAnn,1,12345678901\n \" \",2,3\n",
     {"3: the name is empty"},
     "Ann\n1\n"},
    // Any order of attributes, what is not an entry, and a last line without an end.
    {{"", "directory"},
     true,
     "cn: stray\nmail: stray\n\ndn: 1\ncn: Ann\r\nmail: box1\r\ncn: more\n\ndn: 2\nou: none\n\n"
     "dn: 3\ncn: Bob\n\ndn: 4\nmail: box4\n\ndn: 5\ncn: Cy \"C\" Lee\nmail: box5\n"
     "dn: 6\nphoto: " +
         kLong + "\nmail: box6\ncn: Di",
     {"1: there is no \"dn:\" line before it", "2: there is no \"dn:\" line before it",
      "12: no address: the entry has no \"mail:\" line",
      "15: no name: the entry has no \"cn:\" line, or a later line contains \"dn:\"",
      "18: the name contains a double quote"},
     "SE emailab \"Ann\" \"box1\"\nSE emailab \"Di\" \"box6\"\n"},
    // What the converter does not read as such files mean it.
    {{"", "directory"},
     false,
     "dn: 1\ncn: A\n nn\nmail: box1\ndn: 2\ncn: B\nmail: bo\n x2\ndn: 3\ncn:: Qw==\nmail: box3\n"
     "dn: 4\ncn: x" +
         k31 + "\nmail: box4\ndn: 5\ncn: E\nxdn: y\nmail: box5\n" +
         Bytes("dn: 6\ncn: F\nmail: b\0x6\n") + "dn: 7\ncn:  " + k31 + "\nmail: box7\n" +
         "dn: 8\ncn: G\nmail:\n",
     {"1: the name continues on the next line", "5: the address continues on the next line",
      "9: the name is encoded (double colon)", "12: the name is longer than 31 characters",
      "15: no name: the entry has no \"cn:\" line, or a later line contains \"dn:\"",
      "19: a NUL character inside a line", "25: the address is empty"},
     k31 + "\nbox7\n"},
    // Mailboxes, and rows of other classes; a last line's address may end with the file.
    {{"", "mail"},
     true,
     "Class,First\nList,,,All,x,%SMTP:all%\n\nMailbox,A,B,Ann,x,%SMTP:box1%\nMailbox,A,B,Bob\n"
     "Mailbox,A,B,Cy,%smtp:box3%\nMailbox,A,B,Di,SMTP:box4\n\"Mailbox\",A,B,Ed,%SMTP:box5%\n"
     "Mailbox,A,B,\"Fay,%SMTP:box6%\nMailbox,A,B,\"G, \"\"H\"\"\",%SMTP:box7%\n"
     "Mailbox,A,B,I \"J\" K,%SMTP:box8%\nMailbox,A,B,,%SMTP:box9%\nMailbox,A,B,Lou,SMTP:box10",
     {"5: the line has no field after the name",
      "6: no address: there is no \"SMTP:\" after the name",
      "7: the address has no end: no \"%\", comma or double quote",
      "8: the class must be Mailbox, without quotes", "9: a double quote is not closed",
      "10: the name contains a doubled quote and would be cut there",
      "11: the name contains a double quote", "12: the name is empty"},
     "SE emailab \"Ann\" \"box1\"\nSE emailab \"Lou\" \"box10\"\n"},
    // What was meant for the ends of lines may hide rows.
    {{"", "csv", "", "0,1"},
     true,
     "A,box1\rB,box2\nC,box3,\r\rD,box4\r\nE,box5\r\r\nF,box6\n\r\n\nG,box7\r",
     {"1: " + kBare, "2: " + kBare, "3: " + kBare, "7: " + kBare},
     "SE emailab \"F\" \"box6\"\n"},
    {{"", "directory"},
     true,
     "dn: 1\rcn: A\rmail: box1\rdn: 2\ncn: B\ndn: 3\ncn: C\nmail: box3\r\ndn: 4\ncn: D\nmail: "
     "box4\r",
     {"1: " + kBare, "6: " + kBare},
     "SE emailab \"C\" \"box3\"\n"},
    {{"", "mail"},
     true,
     "Class\nList,\rMailbox,A,B,Ann,%SMTP:box1%\nMailbox,A,B,Bob,%SMTP:box2%",
     {"2: " + kBare},
     "SE emailab \"Bob\" \"box2\"\n"},
    // Nothing at all, and nothing but a header.
    {{"", "csv", "", "0,1"}, true, "", {}, ""},
    {{"", "csv", "", "0,1", true, true}, true, "Name,Address", {}, "CA emailab\n"},
    {{"", "mail"}, false, "Class,First", {}, ""},
    {{"", "directory"}, true, Bytes("\0\n"), {"1: a NUL character inside a line"}, ""},
    // What other programs write as entries.
    {{"", "directory"},
     true,
     "version: 1\nDN: 1\nCN: A\ndn: 2\nCn: B\nmail: box2\ndn: 3\ncn: C\nmail: box3\nMail: more\n\n"
     "dn: 4\ncn: D\nmail: box4\n\ncn: E\ndn: 5\ncn: F\nmail: box5\nDN: 6\n",
     {"2: \"dn:\" must be in lower case", "3: there is no \"dn:\" line before it",
      "4: \"cn:\" and \"mail:\" must be in lower case", "16: there is no \"dn:\" line before it",
      "20: \"dn:\" must be in lower case"},
     "SE emailab \"C\" \"box3\"\nSE emailab \"D\" \"box4\"\nSE emailab \"F\" \"box5\"\n"},
};

TEST(ImportPlan, SendsTheRowsThatArriveWholeAndTellsOfTheOthers) {
  const ScratchFolder folder;
  for (const RowsCase& each : kCases) {
    ImportRequest request = each.request;
    request.file = folder.Write("rows", each.text);
    const ImportPlan plan(request, each.isAdmin);
    std::vector<std::string> faults;
    for (const ImportRow& row : plan.Rows().rows) {
      if (!row.fault.empty()) faults.push_back(std::to_string(row.line) + ": " + row.fault);
    }
    EXPECT_EQ(faults, each.faults) << each.text;
    EXPECT_EQ(plan.Script(), each.script) << each.text;
  }
}

TEST(RejectedRows, StandInTheirFileAsTheyStoodInTheOther) {
  const ScratchFolder folder;
  const std::string file =
      folder.Write("rows", "Name,Mail\r\nAnn\r\n\nBob,box2\n" + Bytes("C\0\n") + "Di,\"box4");
  const ImportPlan plan({file, "csv", "", "name=Name,address=Mail"}, true);
  const std::string rejects = folder.Write("rejects", "old");
  WriteRejectedRows(rejects, file, plan.Rows());
  EXPECT_EQ(ReadBytes(rejects), "Name,Mail\r\nAnn\r\n" + Bytes("C\0\n") + "Di,\"box4");
  EXPECT_THAT(folder.Names(), ElementsAre("rejects", "rows"));

  const std::string marked = folder.Write("rows",
                                          "Ann,box1\n\xEF\xBB\xBF"
                                          "Bob\n");
  WriteRejectedRows(rejects, marked, ImportPlan({marked, "csv", "", "0,1"}, true).Rows());
  EXPECT_EQ(ReadBytes(rejects),
            "\xEF\xBB\xBF\xEF\xBB\xBF"
            "Bob\n")
      << "the first one is no row's";

  const std::string parted =
      folder.Write("rows", "dn: 1\ncn: A\ndn: 2\ncn: B\nmail: box2\n\nmail: box3\n");
  WriteRejectedRows(rejects, parted, ImportPlan({parted, "directory"}, true).Rows());
  EXPECT_EQ(ReadBytes(rejects), "dn: 1\ncn: A\n\nmail: box3\n") << "it is not the first one's";

  EXPECT_THROW(WriteRejectedRows(folder.PathOf("./rows"), file, plan.Rows()), UsageError);
  EXPECT_THROW(WriteRejectedRows(folder.Path().string(), file, plan.Rows()), UsageError);
  EXPECT_THROW(WriteRejectedRows(folder.PathOf("none/x"), file, plan.Rows()), Refusal);
  std::error_code noLinks;
  std::filesystem::create_symlink("nowhere", folder.PathOf("link"), noLinks);
  if (!noLinks) {
    EXPECT_THROW(WriteRejectedRows(folder.PathOf("link"), file, plan.Rows()), Refusal);
  }
}

}  // namespace
}  // namespace quillctl
