// What the simulator keeps in files and reads from its environment: its own sources, without the
// library.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <random>
#include <string>
#include <string_view>

#include "bridge/status.h"
#include "simulator/escaped_text.h"
#include "simulator/fault_script.h"
#include "simulator/journal_file.h"
#include "simulator/state_file.h"
#include "simulator/state_text.h"
#include "tests/support/email_entry.h"
#include "tests/support/menu_item.h"
#include "tests/support/scratch_folder.h"

namespace quillkit {

using namespace quillbox;

namespace {

using testing::HasSubstr;

BookPath Path(BookKind kind, std::string_view name = {}, std::string_view user = {}) {
  return {kind, EntryKey(name), user};
}

// Books of each sort: fixed, named, a user's own; empty ones, odd bytes, full fields, a backup.
Contents Sample() {
  Contents contents;
  Store& store = contents.store;
  const CEmailEntry email = MakeEntry("B\xFCro \"\\x41\" \\z2;\n", std::string(255, '\xFF'));
  const CMenuItem item = MakeItem("Scan to desk");
  CUserEntry user;
  user.SetName("Agnes");
  store.Put(Path(BookKind::kEmail), &email);
  store.Put(Path(BookKind::kKeyItems, "Desks"), &item);
  store.CreateBook(Path(BookKind::kKeyItems, "Empty"));
  contents.backups["night, \"1\""] = store;
  store.Put(Path(BookKind::kUsers), &user);
  store.Put(Path(BookKind::kPrivateEmail, {}, "Agnes"), &email);
  store.Put(Path(BookKind::kPrivateList, "Friends", "Agnes"), &email);
  return contents;
}

class StateTest : public testing::Test {
 protected:
  const ScratchFolder folder;
  const std::string kept = folder.PathOf("kept");
};

TEST_F(StateTest, ReadsBackEveryBookUnchanged) {
  const std::string text = StateText(Sample());
  EXPECT_THAT(text, HasSubstr("book 512 \"Empty\" \"\"\nbook "));
  EXPECT_THAT(text, HasSubstr("book 128 \"Friends\" \"Agnes\"\nentry "));
  Contents read;
  ASSERT_EQ(ReadState(text, read), "");
  EXPECT_EQ(StateText(read), text);
  EXPECT_NE(read.store.Find(Path(BookKind::kKeyItems, "Desks")), nullptr);
}

TEST_F(StateTest, ReportsTheLineAndTheReasonOfAnError) {
  const std::string noBook = "line 2: unknown book";
  const struct {
    std::string lines, fault;
  } cases[] = {
      {"", "truncated"},
      {"end\nen\nend\n", "line 3: not a line of a state file"},
      {"end x\n", "line 2: not a line of a state file"},
      {"\r\n\nbok 1\nend\n", "line 4: not a line of a state file"},
      {"book 1 \"EMAILAB\"\nend\n", "line 2: invalid book line"},
      {"book 1 \"FAXAB\" \"\"\nend\n", noBook},
      {"book 1 \"EMAILAB\" \"Agnes\"\nend\n", noBook},
      {"book 16 \"PRIVATEAB\" \"\"\nend\n", noBook},
      {"book 99999 \"\" \"\"\nend\n", noBook},
      {"book 512 \"\" \"\"\nend\n", noBook},
      {"entry \"x\\z551;\"\nend\n", "line 2: entry outside a book"},
      {"book 512 \"Desks\" \"\"\nentry \"x\\z550;\"\nend\n", "line 3: invalid entry"},
      {"book 512 \"Desks\" \"\"\nentry \"x\\z4294967295;\"\nend\n", "line 3: invalid entry"},
      {"book 512 \"" + std::string(32, 'n') + "\" \"\"\nend\n", "line 2: invalid b"},
      {"backup \"a\"\nbackup \"a\"\nend\n", "line 3: duplicate backup name"},
      {"book 512 \"Desks\" \"\"\nbackup \"a\"\nentry \"x\"\nend\n", "line 4: entry outside"},
      {"book 1 \"\" \"\"\nremove Agnes\nend\n", "line 3: invalid removal"},
      {"book 1 \"\" \"\"\nend\nclear\nend\n", "line 4: nothing to clear"},
      {"drop 5 \"Desks\" \"\"\nend\n", "line 2: unknown book"},
  };
  Contents contents;
  for (const auto& each : cases) {
    contents = {};
    EXPECT_THAT(ReadState("quillbox state 1\n" + each.lines, contents), HasSubstr(each.fault))
        << each.lines;
  }
  EXPECT_THAT(ReadState("", contents), HasSubstr("not a state file"));
}

TEST_F(StateTest, ReadsBackEveryTextThatItAccepts) {
  const std::string good = StateText(Sample());
  std::mt19937 random(20260725);
  for (int round = 0; round < 400; ++round) {
    SCOPED_TRACE(testing::Message() << "round " << round);
    std::string text = good;
    text[random() % text.size()] =
        round % 2 == 0 ? static_cast<char>(random()) : good[random() % good.size()];
    Contents contents;
    if (!ReadState(text, contents).empty()) continue;
    const std::string once = StateText(contents);
    Contents again;
    EXPECT_EQ(ReadState(once, again), "");
    EXPECT_EQ(StateText(again), once);
  }
}

TEST_F(StateTest, HidesPasswordsOnRequest) {
  Contents contents = Sample();
  CUserEntry user;
  user.SetName("Agnes");
  user.SetPassword("linden");
  contents.store.Put(Path(BookKind::kUsers), &user);
  user.SetName("ADMINISTRATOR");
  user.SetPassword("changed");
  contents.store.Put(Path(BookKind::kUsers), &user);
  const std::string text = StateText(contents, Passwords::kHidden);
  EXPECT_THAT(text, Not(testing::AnyOf(HasSubstr("linden"), HasSubstr("changed"))));
  EXPECT_THAT(text, HasSubstr("ADMINISTRATOR\\z19;quill"));
}

TEST_F(StateTest, RefusesAFileThatItCannotUseAndNeverOverwritesIt) {
  Contents contents = Sample();
  const std::string text = StateText(contents);
  WriteBytes(kept, text.substr(0, 500));
  const std::pair<std::string, std::string> cases[] = {
      {kept, "line "},
      {folder.Path().string(), "not a file"},
      {folder.PathOf("missing/state"), "cannot lock"},
  };
  for (const auto& [place, fault] : cases) {
    StateFile file;
    EXPECT_THAT(file.Open(place, contents), HasSubstr(fault));
    EXPECT_FALSE(file.IsOpen());
  }
  EXPECT_EQ(StateText(contents), text);
  EXPECT_EQ(ReadBytes(kept), text.substr(0, 500));
}

// Two processes that share a file, and a random change of one of them.
class SharedStateTest : public StateTest {
 protected:
  struct Process {
    Contents contents;
    StateFile file;
  };

  SharedStateTest() {
    for (Process& each : processes) EXPECT_EQ(each.file.Open(kept, each.contents), "");
  }

  std::string_view AnyName() {
    constexpr std::string_view kNames[] = {"A", "B", "C"};
    return kNames[random() % std::size(kNames)];
  }

  void Change(Contents& contents) {
    constexpr BookKind kKinds[] = {
        BookKind::kEmail,    BookKind::kUsers,   BookKind::kTop,         BookKind::kPrivateEmail,
        BookKind::kKeyItems, BookKind::kFaxList, BookKind::kPrivateList, BookKind::kPublicList};
    Store& store = contents.store;
    const BookPath path = Path(kKinds[random() % std::size(kKinds)], AnyName(), AnyName());
    std::string record(AnyName());
    record.resize(2000);  // longer than any record
    record[40] = AnyName()[0];
    switch (random() % 8) {
      case 0:
        store.DeleteBook(path);
        break;
      case 1:
        store.RenameBook(Path(BookKind::kPrivateList, AnyName(), AnyName()), EntryKey(AnyName()));
        break;
      case 2:
        store.ClearBook(path, AnyName());
        break;
      case 3:
        store.ClearBook(path, {});
        break;
      case 4:
        store.DeleteEntry(path, EntryKey(AnyName()));
        break;
      case 5:
        store.ModifyEntry(path, EntryKey(AnyName()), record.data());
        break;
      default:
        store.Put(path, record.data());
    }
  }

  std::mt19937 random{20261126};
  Process processes[2];
};

TEST_F(SharedStateTest, GivesEachProcessTheChangesOfTheOther) {
  for (int step = 0; step < 1000; ++step) {
    Process& changing = processes[random() % 2];
    ASSERT_EQ(changing.file.Begin(changing.contents), "") << "step " << step;
    Change(changing.contents);
    if (step % 100 == 50) changing.contents.backups["night"] = changing.contents.store;
    if (step % 100 == 50) changing.contents.store.MarkWhole();
    ASSERT_EQ(changing.file.End(changing.contents), "");
    Process& other = processes[&changing == &processes[0] ? 1 : 0];
    ASSERT_EQ(other.file.Begin(other.contents), "") << "step " << step;
    ASSERT_EQ(other.file.End(other.contents), "");
    ASSERT_EQ(StateText(other.contents), StateText(changing.contents)) << "step " << step;
  }
}

TEST_F(SharedStateTest, LosesOnlyTheChangeThatWasInterrupted) {
  Process& process = processes[0];
  const auto put = [&](const char* name, Process& changing) {
    const CMenuItem item = MakeItem(name);
    EXPECT_EQ(changing.file.Begin(changing.contents), "");
    changing.contents.store.Put(Path(BookKind::kKeyItems, "Desks"), &item);
    EXPECT_EQ(changing.file.End(changing.contents), "");
    return ReadBytes(kept);
  };
  const std::string one = put("One", process);
  const std::string two = put("Two", process);
  for (std::size_t size = one.size(); size <= two.size(); ++size) {
    WriteBytes(kept, two.substr(0, size));  // the last line end may be missing
    Process next;
    ASSERT_EQ(next.file.Open(kept, next.contents), "") << size;
    EXPECT_EQ(next.contents.store.Find(Path(BookKind::kKeyItems, "Desks"))->Size(),
              size + 1 >= two.size() ? 2U : 1U);
  }
  WriteBytes(kept, two.substr(0, two.size() - 1));
  put("Three", processes[1]);
  EXPECT_EQ(ReadBytes(kept), StateText(processes[1].contents)) << "a process that ran meanwhile";
  WriteBytes(kept, two.substr(0, two.size() - 1));
  Process next;
  ASSERT_EQ(next.file.Open(kept, next.contents), "");
  process.contents = {};
  process.file = {};
  ASSERT_EQ(process.file.Open(kept, process.contents), "");
  put("Three", process);
  EXPECT_EQ(process.file.Close(process.contents), "");
  EXPECT_EQ(ReadBytes(kept), StateText(process.contents)) << "a small file ends with a checkpoint";
  EXPECT_THAT(folder.Names(), testing::ElementsAre("kept", "kept.lock"));
}

TEST_F(SharedStateTest, HasOnlyWhatTheFileContains) {
  auto& [contents, file] = processes[0];
  const CMenuItem item = MakeItem("One");
  ASSERT_EQ(file.Begin(contents), "");
  contents.store.Put(Path(BookKind::kKeyItems, "Desks"), &item);
  std::filesystem::rename(kept, folder.PathOf("moved"));
  std::filesystem::create_directory(kept);
  EXPECT_THAT(file.End(contents), HasSubstr("cannot write"));
  std::filesystem::remove(kept);
  std::filesystem::rename(folder.PathOf("moved"), kept);
  EXPECT_EQ(file.Begin(contents), "");
  EXPECT_EQ(StateText(contents), ReadBytes(kept)) << "without the change that was not written";
  EXPECT_EQ(file.End(contents), "");
  const std::string good = ReadBytes(kept);
  WriteBytes(kept, good + "clear\nend\n");
  for (int i = 0; i < 2; ++i) {
    EXPECT_THAT(file.Begin(contents), HasSubstr("nothing to clear"));
    EXPECT_EQ(file.End(contents), "");
  }
  WriteBytes(kept, good);
  EXPECT_EQ(file.Begin(contents), "");
}

TEST_F(StateTest, WritesTheJournalInEachForm) {
  const std::pair<const char*, std::string> cases[] = {
      {"plain", "IMSPAbort = 0\nIMSPDeleteEntry 1: \\xE9\" = 4\n"},
      {"text", "now IMSPAbort = 0\nnow IMSPDeleteEntry 1: \\xE9\" = 4; line 2\n"},
      {"json",
       R"({"time":"now","entryPoint":"IMSPAbort","arguments":"","status":0}
{"time":"now","entryPoint":"IMSPDeleteEntry","arguments":"1: \u00E9\"","status":4,"fault":"line 2"}
)"},
  };
  for (const auto& [form, text] : cases) {
    JournalFile file;
    EXPECT_EQ(file.Open(folder.PathOf(form), *JournalFormOf(form)), "");
    file.Add({"now", "IMSPAbort", 0, ""});
    file.Add({"now", "IMSPDeleteEntry 1: \xE9\"", 4, "line 2"});
    EXPECT_EQ(ReadBytes(folder.PathOf(form)), text);
  }
}

TEST(EscapedText, ReadsOnlyTheFormThatItWrites) {
  const std::string bytes("\0a\0\0\0\\\"\x7F\xFF\n ~", 12);
  EXPECT_EQ(Escaped(bytes), "\\x00a\\z3;\\x5C\"\\x7F\\xFF\\x0A ~");
  EXPECT_EQ(Unescaped(Escaped(bytes, "\""), bytes.size()), bytes);
  EXPECT_EQ(Unescaped("abc", 2), std::nullopt);
  for (const char* text : {"\\", "\\x", "\\x4", "\\xG0", "\\x 4", "\\x-1", "\\z", "\\z3", "\\z;",
                           "\\z-1;", "\\y41", "\n", "\x80"}) {
    EXPECT_EQ(Unescaped(text, 100), std::nullopt) << text;
  }
}

std::optional<Status> StatusOf(Faults& faults, std::string_view entryPoint) {
  CallFacts call;
  call.entryPoint = entryPoint;
  const Fault* const fault = faults.CountCall(call);
  return fault != nullptr ? fault->effect.status : std::nullopt;
}

TEST(FaultScript, AddsAllFaultsOfATextOrNone) {
  Faults faults;
  EXPECT_EQ(ScriptFaults("IMSPLogin:2=11,*:2=12,*:3=-1,IMSPAbort:0=13", faults), "");
  EXPECT_EQ(StatusOf(faults, "IMSPLogin"), std::nullopt);
  EXPECT_EQ(StatusOf(faults, "IMSPLogin"), 11)
      << "the first of two matching faults applies, and both are removed";
  EXPECT_EQ(StatusOf(faults, "IMSPIOCtl"), -1);
  EXPECT_EQ(StatusOf(faults, "IMSPAbort"), 13);
  EXPECT_EQ(StatusOf(faults, "IMSPAbort"), 13) << "a fault with number 0 applies to every call";
  for (const char* text :
       {"IMSPLogin", "IMSPLogin:1", "IMSPLogin=1", "IMSPLogin:-1=1", ":1=1", "IMSPLogin:1=1 ",
        "ImspLogin:1=1", "IMSPLogin:0=1,,", "IMSPLogin:1=1,", ","}) {
    EXPECT_NE(ScriptFaults(text, faults), "") << text;
  }
  EXPECT_EQ(StatusOf(faults, "IMSPLogin"), std::nullopt);
}

}  // namespace
}  // namespace quillkit
