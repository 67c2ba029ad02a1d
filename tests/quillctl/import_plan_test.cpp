// What the transcript cannot show: lines with control characters or of any length.

#include "quillctl/import_plan.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "quillctl/column_map.h"
#include "quillctl/failures.h"
#include "quillctl/import_report.h"
#include "tests/support/scratch_folder.h"

namespace quillctl {
namespace {

using namespace std::string_literals;
using quillkit::ReadBytes;
using quillkit::ScratchFolder;
using testing::ElementsAre;

TEST(ColumnMap, RejectsInvalidColumns) {
  std::istringstream maps(
      "|,|1,|,1|1,,2|1, 2|-2,1|1x,1|+1,1|0x1,1|2147483648,1|1|name|=1|name=1,|name=1,number=2|"
      "Name=1|name=-2|name=2147483648|name=1,\"address=2|name=Fax|name=E-Mail");
  for (std::string map; std::getline(maps, map, '|');) {
    EXPECT_THROW(ColumnMap(map, FindBook("email").front()).Columns({"E-mail", "Fax", "Fax"}),
                 UsageError)
        << "map " << map;
  }
}

TEST(ImportPlan, SendsRowsThatFitAndReportsTheLinesOfOtherRows) {
  const std::string name(31, 'n');
  const std::string address(255, 'a');
  const std::string spaces(4090, ' ');  // the converter reads lines of up to 4093 characters
  const struct {
    const char* format;
    std::string text;
    std::vector<std::string> faults;
    std::string script;
  } cases[] = {
      {"csv",
       name + ',' + address + "\nm" + name + ",b\nc," + address + "a\nd,\0e\n"s + "e,f" + spaces +
           "\ng,h" + spaces + " \ni,j\rk,l\n\nm,n\r\r\no,p",
       {"2: the name is longer than 31 bytes", "3: the address is longer than 255 bytes",
        "4: a NUL character inside a line", "6: the line is longer than 4093 bytes",
        "7: a carriage return inside a line", "9: a carriage return inside a line"},
       "SE emailab \"" + name + "\" \"" + address +
           "\"\nSE emailab \"e\" \"f\"\nSE emailab \"o\" \"p\"\n"},
      {"directory",
       "\0\ndn: 1\ncn: A\rmail: box1\rdn: 2\ncn: B\ndn: 3\ncn: x"s + name +
           "\nmail: box3\ndn: 4\ncn: F\nmail: b\0x4\n"s + "dn: 5\ncn:  " + name +
           "\nmail: box5\r\ndn: 6\nphoto: " + spaces + "\nmail: box6\ncn: Di",
       {"1: a NUL character inside a line", "2: a carriage return inside a line",
        "5: the name is longer than 31 bytes", "8: a NUL character inside a line"},
       "SE emailab \"" + name + "\" \"box5\"\nSE emailab \"Di\" \"box6\"\n"},
      {"mail",
       "Class\nList,\rMailbox,A,B,Ann,%SMTP:box1%\nMailbox,A,B,Bob,SMTP:box2",
       {"2: a carriage return inside a line"},
       "SE emailab \"Bob\" \"box2\"\n"},
  };
  const ScratchFolder folder;
  for (const auto& each : cases) {
    SCOPED_TRACE("format "s + each.format);
    const bool isDelimited = each.format == "csv"s;
    const ImportPlan plan(
        {folder.Write("rows", each.text), each.format, "", isDelimited ? "0,1" : ""}, true);
    std::vector<std::string> faults;
    for (const ImportRow& row : plan.Rows().rows) {
      if (!row.fault.empty()) faults.push_back(std::to_string(row.line) + ": " + row.fault);
    }
    EXPECT_EQ(faults, each.faults);
    EXPECT_EQ(plan.Script(), each.script);
  }
}

TEST(RejectedRows, AreWrittenByteForByte) {
  const std::string mark = "\xEF\xBB\xBF";  // of a file in UTF-8
  const ScratchFolder folder;
  const std::string file =
      folder.Write("rows", "Ann,box1\n" + mark + "Bob\r\n\nCy,box3\nD\0\nEd,\"box5"s);
  const std::string rejects = folder.Write("rejects", "old");
  const ImportPlan plan({file, "csv", "", "0,1"}, true);
  WriteRejectedRows(rejects, plan.Rows());
  // The first mark belongs to the file, the second one to the row.
  EXPECT_EQ(ReadBytes(rejects), mark + mark + "Bob\r\nD\0\nEd,\"box5"s);
  EXPECT_THAT(folder.Names(), ElementsAre("rejects", "rows"));

  std::error_code noLinks;
  std::filesystem::create_symlink("nowhere", folder.PathOf("link"), noLinks);
  if (noLinks) GTEST_SKIP() << "cannot create a symbolic link";
  EXPECT_THROW(WriteRejectedRows(folder.PathOf("link"), plan.Rows()), Refusal);
}

}  // namespace
}  // namespace quillctl
