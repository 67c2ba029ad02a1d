// What the simulator keeps in files and reads from its environment: its own sources, without the
// library.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <sstream>
#include <string>
#include <string_view>

#include "bridge/status.h"
#include "simulator/escaped_text.h"
#include "simulator/fault_script.h"
#include "simulator/state_file.h"
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

std::string TextOf(const Contents& contents) {
  std::ostringstream out;
  WriteState(out, contents);
  return out.str();
}

class StateTest : public testing::Test {
 protected:
  // Returns a description of the error in the text.
  std::string Read(std::string_view text, Contents& contents) const {
    TextLines lines(folder.Write("state", text).c_str());
    return ReadState(lines, contents);
  }

  const ScratchFolder folder;
};

TEST_F(StateTest, ReadsBackEveryBookUnchanged) {
  const std::string text = TextOf(Sample());
  EXPECT_THAT(text, HasSubstr("book 512 \"Empty\" \"\"\nbook "));
  EXPECT_THAT(text, HasSubstr("book 128 \"Friends\" \"Agnes\"\nentry "));
  Contents read;
  ASSERT_EQ(Read(text, read), "");
  EXPECT_EQ(TextOf(read), text);
  EXPECT_NE(read.store.Find(Path(BookKind::kKeyItems, "Desks")), nullptr);
}

TEST_F(StateTest, ReportsTheLineAndTheReasonOfAnError) {
  const std::string noBook = "line 2: unknown book";
  const struct {
    std::string lines, fault;
  } cases[] = {
      {"", "truncated"},
      {"end\nend\n", "line 3: unexpected line after the end"},
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
      {std::string(5000, ' ') + "\nend\n", "line 2: line too long"},
  };
  Contents contents;
  for (const auto& each : cases) {
    contents = {};
    EXPECT_THAT(Read("quillbox state 1\n" + each.lines, contents), HasSubstr(each.fault))
        << each.lines;
  }
  EXPECT_THAT(Read("", contents), HasSubstr("not a state file"));
}

TEST_F(StateTest, ReadsBackEveryTextThatItAccepts) {
  const std::string good = TextOf(Sample());
  std::mt19937 random(20260725);
  for (int round = 0; round < 400; ++round) {
    SCOPED_TRACE(testing::Message() << "round " << round);
    std::string text = good;
    text[random() % text.size()] =
        round % 2 == 0 ? static_cast<char>(random()) : good[random() % good.size()];
    Contents contents;
    if (!Read(text, contents).empty()) continue;
    const std::string once = TextOf(contents);
    Contents again;
    EXPECT_EQ(Read(once, again), "");
    EXPECT_EQ(TextOf(again), once);
  }
}

TEST_F(StateTest, CreatesItsFileAndNeverOverwritesADamagedOne) {
  const std::string path = folder.PathOf("kept");
  Contents first = Sample();
  StateFile made;
  made.Open(path, first);
  EXPECT_EQ(ReadBytes(path), TextOf(first));
  first.store.DeleteBook(Path(BookKind::kKeyItems, "Desks"));
  made.Save(first);

  Contents second;
  StateFile opened;
  opened.Open(path, second);
  EXPECT_EQ(TextOf(second), TextOf(first));
  EXPECT_FALSE(second.store.ResetChanged());
  EXPECT_THAT(folder.Names(), testing::ElementsAre("kept"));

  WriteBytes(path, TextOf(first).substr(0, 500));
  testing::internal::CaptureStderr();
  StateFile damaged;
  damaged.Open(path, second);
  EXPECT_FALSE(damaged.IsOpen());
  EXPECT_EQ(TextOf(second), TextOf(first));
  EXPECT_EQ(ReadBytes(path).size(), 500U);
  damaged.Open(folder.Path().string(), second);
  EXPECT_FALSE(damaged.IsOpen());
  damaged.Open(folder.PathOf("missing/state"), second);
  const std::string warnings = testing::internal::GetCapturedStderr();
  for (const char* warning : {"QUILLBOX_STATE: line ", "cannot read", "cannot write"}) {
    EXPECT_THAT(warnings, HasSubstr(warning));
  }
}

TEST(Store, ReportsEachSuccessfulChangeOnce) {
  Store store;
  EXPECT_TRUE(store.ResetChanged());
  const CMenuItem item = MakeItem("Scan");
  const EntryKey name("Scan");
  const BookPath key = Path(BookKind::kKeyItems, "Desks");
  const BookPath list = Path(BookKind::kPublicList, "Staff");
  EXPECT_EQ(store.DeleteEntry(key, name), kNoSuchBook);
  EXPECT_FALSE(store.ResetChanged());
  const auto expectChange = [&store](Status status) {
    EXPECT_EQ(status, kNoError);
    EXPECT_TRUE(store.ResetChanged());
    EXPECT_FALSE(store.ResetChanged());
  };
  expectChange(store.CreateBook(key));
  expectChange(store.CreateEntry(key, &item));
  expectChange(store.ModifyEntry(key, name, &item));
  expectChange(store.DeleteEntry(key, name));
  expectChange(store.Put(key, &item));
  expectChange(store.ClearBook(key, ""));
  expectChange(store.DeleteBook(key));
  expectChange(store.CreateBook(list));
  expectChange(store.RenameBook(list, EntryKey("All")));
  expectChange(store.DeleteBook(Path(BookKind::kPublicList, "All")));
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

TEST(FaultScript, AddsAllFaultsOfATextOrNone) {
  Faults faults;
  EXPECT_EQ(ScriptFaults("IMSPLogin:2=11,*:2=12,*:3=-1,IMSPAbort:0=13", faults), "");
  EXPECT_EQ(faults.CountCall("IMSPLogin"), std::nullopt);
  EXPECT_EQ(faults.CountCall("IMSPLogin"), 11)
      << "the first of two matching faults applies, and both are removed";
  EXPECT_EQ(faults.CountCall("IMSPIOCtl"), -1);
  EXPECT_EQ(faults.CountCall("IMSPAbort"), 13);
  EXPECT_EQ(faults.CountCall("IMSPAbort"), 13) << "a fault with number 0 applies to every call";
  for (const char* text : {"IMSPLogin", "IMSPLogin:1", "IMSPLogin=1", "IMSPLogin:-1=1", ":1=1",
                           "IMSPLogin:1=1 ", "ImspLogin:1=1", "IMSPLogin:0=1,,"}) {
    EXPECT_NE(ScriptFaults(text, faults), "") << text;
  }
  EXPECT_EQ(faults.CountCall("IMSPLogin"), std::nullopt);
}

}  // namespace
}  // namespace quillkit
