// The converters: the scripts they write, the files they cannot read or write, and the window whose
// messages they handle.

#include "import/conversion.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <fstream>
#include <thread>

#include "import/convert_delimited_text.h"
#include "import/convert_file.h"
#include "platform/thread_timer.h"
#include "tests/import/option_record.h"
#include "tests/support/scratch_folder.h"

namespace quillkit {
namespace {

using namespace std::string_literals;

std::string X(std::size_t size) {
  return std::string(size, 'x');
}

// The line of the administrator's script.
std::string Entry(const std::string& name, const std::string& address) {
  return "SE emailab \"" + name + "\" \"" + address + "\"\n";
}

const std::string kAnnBox = Entry("Ann", "box");

class ConversionTest : public testing::Test {
 protected:
  struct Example {
    std::string file;
    std::string script;
  };

  // Each script replaces the one before, which may have been longer.
  void ExpectScripts(const OptionRecord& options, const std::vector<Example>& examples,
                     bool isAdmin = true) const {
    for (const Example& each : examples) {
      SCOPED_TRACE("file " + testing::PrintToString(each.file.substr(0, 60)));
      const std::string source = folder.Write("source", each.file);
      EXPECT_EQ(
          ConvertFile({.sourcePath = source.c_str(), .script = script.c_str(), .isAdmin = isAdmin},
                      *options),
          kConverted);
      // A text file, which may end lines in the system's own manner.
      std::ofstream(folder.PathOf("expected")) << each.script;
      EXPECT_EQ(ReadBytes(script), ReadBytes(folder.PathOf("expected")));
    }
  }

  const ScratchFolder folder;
  const std::string script = folder.PathOf("script");
};

// --- Delimited text ---

TEST_F(ConversionTest, WritesTheRowsOfDelimitedText) {
  ExpectScripts(
      OptionRecord(ImportFormatDelimited),
      {
          {"Ann,box\r\n\"Lee, Ann\",\"say \"\"hi\"\"\"", kAnnBox + Entry("Lee, Ann", "say hi")},
          {"\t\v Ann\f\r,\" box \" \n", kAnnBox},
          // Lines of spaces are skipped, lines of other white space are rows.
          {"\n  \n\r\n Ann , box \n\n", kAnnBox},
          {"\t\n", Entry("", "")},
          // An unclosed quote loses its value and those after it.
          {"Ann,\"box\n", Entry("Ann", "")},
          // A NUL ends its line.
          {"Ann,box\0,x\nBob\n"s, kAnnBox + Entry("Bob", "")},
          // Each part of a long line is a row.
          {X(4094) + "Ann,box\n", Entry(X(31), "") + kAnnBox},
      });
  ExpectScripts(OptionRecord(ImportFormatDelimited, TargetEmail, {2}).SkipHeader(),
                {{"\n  \nx,y,name\n\n1,2,Ann\n", Entry("Ann", "")}, {"x,y,name", ""}});
  for (const std::int32_t emptyMap : {0, -1, INT32_MIN}) {
    ExpectScripts(OptionRecord(ImportFormatDelimited).ColumnCount(emptyMap),
                  {{"Ann,box\n", Entry("", "")}});
  }
}

TEST_F(ConversionTest, CutsTheFieldsOfEachBookToTheirWidths) {
  const struct {
    std::int32_t targetBook;
    std::string word;
    std::vector<std::size_t> widths;
    const char* tail;
  } cases[] = {
      {TargetEmail, "emailab", {31, 255}, "\n"},
      {TargetFax, "faxab", {31, 79, 10}, "\n"},
      {TargetPrinters, "printersab", {31, 255, 31}, "\n"},
      {TargetUsers, "usersab", {31, 15, 255, 255}, " 1 0 0 1\n"},
  };
  std::string row;
  for (const char c : {'a', 'b', 'c', 'd'}) row += std::string(300, c) + ',';
  for (const auto& each : cases) {
    const auto options =
        OptionRecord(ImportFormatDelimited, each.targetBook, {0, 1, 2, 3, 0}).ClearFirst();
    std::string entry = "CA " + each.word + "\nSE " + each.word;
    std::string pair;
    for (std::size_t i = 0; i < each.widths.size(); ++i) {
      const std::string value(each.widths[i], static_cast<char>('a' + i));
      entry += " \"" + value + '"';
      if (i < 2) pair += value + '\n';
    }
    ExpectScripts(options, {{row + " \n", entry + each.tail}});
    // Only the administrator fills the last two books. The rows of others are not formatted.
    const bool hasPair = each.targetBook == TargetEmail || each.targetBook == TargetFax;
    ExpectScripts(options, {{row + " \n", hasPair ? pair : row}}, false);
  }
  for (const std::int32_t unknownBook : {0, 5}) {
    ExpectScripts(OptionRecord(ImportFormatDelimited, unknownBook).ClearFirst(),
                  {{row + '\n', row}});
  }
}

TEST(SplitMappedColumnsTest, StoresTheValueOfEachColumnOrAnEmptyText) {
  const struct {
    std::string row;
    const char* separator;  // only its first character counts
    std::vector<std::int32_t> columnMap;
    std::vector<std::string_view> values;
  } cases[] = {
      {"a", ",", {}, {}},
      {"", ",", {0, 1}, {"", ""}},
      {"a;;b,c;", ";", {0, 1, 2, 3, 4}, {"a", "", "b,c", "", ""}},
      {R"(x"a,b"y"c,d",e)", ",", {0, 1}, {"xa,byc,d", "e"}},
      {R"(a,"b","c,d)", ",", {0, 1, 2}, {"a", "b", ""}},
      {R"(ab"c,d"e)", "\"", {0, 1, 2}, {"ab", "c,d", "e"}},
      {"a,b;\t\"c\" ;d", ";,", {1, 1, INT32_MIN, 1 << 30, 0}, {"c", "c", "", "", "a,b"}},
  };
  for (const auto& each : cases) {
    std::string row = each.row;
    std::vector<std::string_view> values(each.values.size(), "stale");
    EXPECT_EQ(SplitMappedColumns(row.data(), each.columnMap, values, each.separator), 1);
    EXPECT_EQ(values, each.values) << "row " << each.row;
  }
}

// --- Directory export ---

TEST_F(ConversionTest, WritesTheEntriesOfADirectoryExport) {
  ExpectScripts(OptionRecord(ImportFormatDirectory),
                {
                    {"dn: 1\r\ncn:  Ann\r\n\nmail: box\r\n", kAnnBox},
                    {"cn:no\nmail:no\ndn:\nmail:box\nCN:no\ncn:Ann\n", kAnnBox},
                    // The first value counts, and a complete entry ends before the next "dn:".
                    {"dn:\ncn:Ann\ncn:no\nmail:box\nxdn:\ncn:no\nmail:no\n", kAnnBox},
                    // The last character of a line is dropped even if it is no newline.
                    {"dn:\ncn:Ann\n\0\nmail:boxdn:"s, Entry("Ann", "boxdn")},
                    {"dn:\ncn:\nmail:\n", Entry("", "")},
                    // A value is cut before its spaces are removed.
                    {"dn:\ncn: " + X(31) + "\nmail:  " + X(255) + '\n', Entry(X(30), X(253))},
                    // Each part of a long line is a line.
                    {"dn:\ncn:Ann\n" + X(4094) + "mail:box\n", kAnnBox},
                });
}

// A "dn:" anywhere in a line of any length discards the name before it.
TEST_F(ConversionTest, FindsTheMarkOfADirectoryEntryAnywhereInALine) {
  Example entries;
  for (std::size_t size = 3; size < 30; ++size) {
    for (std::size_t at = 0; at + 3 <= size; ++at) {
      for (const std::string text : {"dn:", "d::", "xn:", "dnn", "\xE4n:"}) {
        const std::string line = std::string(size, 'n').replace(at, 3, text);
        entries.file += "dn:\ncn:Ann\n" + line + "\nmail:box\n";
        if (text != "dn:") entries.script += kAnnBox;
      }
    }
  }
  ExpectScripts(OptionRecord(ImportFormatDirectory), {entries});
}

// --- Mail-server export ---

TEST_F(ConversionTest, WritesTheMailboxesOfAMailServerExport) {
  ExpectScripts(
      OptionRecord(ImportFormatMailServer),
      {
          {"Mailbox,a,b,Ann,x,%SMTP:box%X400:c\n", kAnnBox},
          {"List,a,b,n,SMTP:box%\n\"Mailbox\",a,b,n,SMTP:box%\nMailbox\nMailbox", ""},
          // Only the first "SMTP:" after the name counts.
          {"Mailbox,a,b,SMTP:box%,x\n", ""},
          {"Mailbox,a,b,Ann,smtp:box0%SMTP:box,SMTP:box2%\n", kAnnBox},
          {"Mailbox,a,b,Ann,\"SMTP:box\"\nMailbox,a,b,n\nMailbox,a,b\n", kAnnBox},
          // An address without an end of its own contains the newline.
          {"Mailbox,a,b,n,SMTP:box\r\n", Entry("n", "box\n")},
          {"Mailbox,a,b," + X(32) + ",SMTP:" + X(256), Entry(X(31), X(255))},
          // After an empty or quoted second field the name is the third one.
          {"Mailbox,,Ann,b,SMTP:box%\nMailbox,\"x,y\",Ann,b,SMTP:box%\n", kAnnBox + kAnnBox},
          {"Mailbox,a,\"b,c\",n,SMTP:box%\nMailbox,a,,n,SMTP:box%\n",
           Entry("", "box") + Entry("n", "box")},
          {"Mailbox,a,b,\"Lee, Ann\",SMTP:box%\n", Entry("Lee, Ann", "box")},
          // The comma at the beginning of a quoted second or third field is not part of the name.
          {"Mailbox,a,\",Ann\",SMTP:box%\n", kAnnBox},
          // If the name is the last field, the address may follow its closing quote.
          {"Mailbox,a,b,\"Ann\"SMTP:box", kAnnBox},
          {"Mailbox,a,b,\"Ann,SMTP:box%\n", ""},
          {"Mailbox,a,b,\"", ""},
      });
}

// --- All formats ---

TEST_F(ConversionTest, ClearsTheBookAndWritesEntryLinesOnlyForTheAdministrator) {
  const std::string file = "Mailbox,a,b,Ann,SMTP:box%\ndn:\ncn:Ann\nmail:box\n";
  for (const std::uint32_t format : {ImportFormatDirectory, ImportFormatMailServer}) {
    const auto options = OptionRecord(format).ClearFirst();
    ExpectScripts(options, {{file, "CA %s\n" + kAnnBox}});
    ExpectScripts(options, {{file, "Ann\nbox\n"}}, false);
  }
}

// Notes each line as "number|name|address", or as its number if it completes no entry.
class NotingObserver : public RowObserver {
 public:
  void OnLine(std::uint64_t number, std::span<const std::string_view> values) override {
    notes += std::to_string(number);
    for (const std::string_view value : values) notes.append("|").append(value);
    notes += '\n';
  }

  std::string notes;
};

TEST_F(ConversionTest, ReportsEachLineOnceWithTheEntryThatItCompletes) {
  const struct {
    std::uint32_t format;
    std::string file;
    std::string notes;
  } kFiles[] = {
      {ImportFormatDelimited, "Name,Mail\n\nAnn,box\r\nBob\n", "1\n2\n3|Ann|box\n4|Bob|\n"},
      {ImportFormatDelimited, X(4200) + ",m\n" + X(40) + ",n\n",
       "1\n1|" + X(106) + "|m\n2|" + X(40) + "|n\n"},
      {ImportFormatDirectory, "dn: a\ncn: Ann\nmail: box\n\n", "1\n2\n3|Ann|box\n4\n"},
      {ImportFormatMailServer, "Mailbox,a,b,Ann,%SMTP:box%\nRemote,a,b,c,%SMTP:d%\nMailbox,a\0\n"s,
       "1|Ann|box\n2\n3\n"},
  };
  for (const auto& each : kFiles) {
    SCOPED_TRACE(each.file.substr(0, 40));
    const std::string source = folder.Write("source", each.file);
    NotingObserver observer;
    EXPECT_EQ(ConvertFile({.sourcePath = source.c_str(),
                           .script = script.c_str(),
                           .isAdmin = true,
                           .observer = &observer},
                          *OptionRecord(each.format).SkipHeader()),
              kConverted);
    EXPECT_EQ(observer.notes, each.notes);
  }
}

// Rows of many lengths, in many blocks of the file and buffers of the script.
TEST_F(ConversionTest, ConvertsLongFiles) {
  Example formatted;
  Example unformatted;
  for (std::size_t size = 0; size < 4000; size += 7) {
    const std::string row = "Ann," + X(size);
    formatted.file += row + '\n';
    formatted.script += Entry("Ann", X(std::min<std::size_t>(size, 255)));
    unformatted.script += row;
  }
  unformatted.file = formatted.file;
  ExpectScripts(OptionRecord(ImportFormatDelimited), {formatted});
  ExpectScripts(OptionRecord(ImportFormatDelimited, 0), {unformatted});
}

TEST_F(ConversionTest, ReportsFilesThatCannotBeReadOrWritten) {
  std::string rows = "Mailbox,a,b,n,SMTP:box1%\ndn:\ncn: Ann\nmail: box\n";
  const std::string shortFile = folder.Write("short", rows);
  while (rows.size() < 500'000) rows += rows;
  const std::string longFile = folder.Write("long", rows);
  const std::string missing = folder.PathOf("missing/file");
  const std::string noFile = folder.Path().string();
  const struct {
    const char* source;
    const char* script;
    std::int32_t result;
  } cases[] = {
      {missing.c_str(), script.c_str(), kSourceFailed},
      {noFile.c_str(), script.c_str(), kSourceFailed},
      {"", script.c_str(), kSourceFailed},
      {nullptr, script.c_str(), kSourceFailed},
      {nullptr, nullptr, kSourceFailed},  // the source is opened first
      // Linux opens /proc/self/mem and /dev/full, but cannot read or write them.
      {"/proc/self/mem", script.c_str(), kSourceFailed},
      {shortFile.c_str(), missing.c_str(), kScriptFailed},
      {shortFile.c_str(), noFile.c_str(), kScriptFailed},
      {shortFile.c_str(), "", kScriptFailed},
      {shortFile.c_str(), nullptr, kScriptFailed},
      {shortFile.c_str(), "/dev/full", kScriptFailed},
      {longFile.c_str(), "/dev/full", kScriptFailed},
  };
  WriteBytes(script, "as it was");
  for (const std::uint32_t format : kConvertedFormats) {
    for (const auto& each : cases) {
      EXPECT_EQ(
          ConvertFile({.sourcePath = each.source, .script = each.script}, *OptionRecord(format)),
          each.result)
          << "format " << format << " from " << each.source << " to " << each.script;
    }
  }
  EXPECT_EQ(ReadBytes(script), "as it was") << "an unreadable source leaves the script unchanged";
}

int timerRuns = 0;

// If messages are handled, the application's timers run during a conversion.
TEST_F(ConversionTest, HandlesMessagesOnlyForAWindow) {
  const std::string source = folder.Write("source", "a\nb\n");
  int window = 0;  // a handle of no window
  const TimerId timer = StartThreadTimer(10, [] { ++timerRuns; });
  for (const std::uint32_t format : kConvertedFormats) {
    for (const WindowHandle pumpWindow : {WindowHandle(), WindowHandle(&window)}) {
      timerRuns = 0;
      std::this_thread::sleep_for(std::chrono::milliseconds(50));
      ConvertFile({.sourcePath = source.c_str(),
                   .script = script.c_str(),
                   .pumpWindow = pumpWindow,
                   .restoreCursor = true},
                  *OptionRecord(format));
      EXPECT_EQ(timerRuns > 0, pumpWindow != nullptr) << "format " << format;
    }
  }
  StopThreadTimer(timer);
}

}  // namespace
}  // namespace quillkit
