// The records of the server boundary: what they hold, and how they are stored.

#include "bridge/records.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <string_view>

#include "base/archive.h"

namespace quillkit {
namespace {

using namespace std::literals;

// --- Books ---

TEST(ABIdent, IsItsKindAndItsName) {
  ABIdent book(BookKind::kFaxList, "Scan");
  EXPECT_NE(book, ABIdent(BookKind::kKeyItems, "Scan"));
  EXPECT_NE(book, ABIdent(BookKind::kFaxList, "scan"));
  book = ABIdent(BookKind::kFax, "AB");
  EXPECT_EQ(book, ABIdent(BookKind::kFaxList, "AB")) << "an assignment copies the name alone";
  EXPECT_EQ(book.name.c_str()[3], 'n');

  const BookKind none = BookKind::kNone;
  const BookKind fax = BookKind::kFax;
  EXPECT_EQ(book.SetKind(&none), 0);
  EXPECT_EQ(book.SetKind(nullptr), 0);
  EXPECT_EQ(book.kind, BookKind::kFaxList);
  EXPECT_EQ(book.SetKind(&fax), 0);
  EXPECT_EQ(book.kind, BookKind::kFax);
}

// --- Menu items ---

CMenuItem Item() {
  CMenuItem item;
  item.SetAll("name", "path", "tag", "address", 1, 2);
  return item;
}

TEST(CMenuItem, SetAllStopsAtTheTextThatIsRefused) {
  // The texts in the order of the arguments, the refused one by its place; then none is.
  for (std::size_t refused = 0; refused <= 4; ++refused) {
    SCOPED_TRACE(refused);
    CMenuItem item = Item();
    std::string texts[] = {"n", "p", "t", "a", ""};
    texts[refused] = std::string(256, 'x');
    EXPECT_EQ(item.SetAll(texts[0], texts[1], texts[2], texts[3], 7, 8), refused == 4 ? 1 : 0);
    EXPECT_EQ(item.name.View(), refused > 0 ? "n" : "name");
    EXPECT_EQ(item.path.View(), refused > 1 ? "p" : "path");
    EXPECT_EQ(item.appTag.View(), refused > 2 ? "t" : "tag");
    EXPECT_EQ(item.ipAddress.View(), refused > 3 ? "a" : "address");
    EXPECT_EQ(item.settings, refused > 3 ? 7U : 1U);
    EXPECT_EQ(item.fileFormat, refused > 3 ? 8U : 2U);
  }
}

TEST(CMenuItem, TheLowHalfIsReplacedAndTheNibbleOnlyGrows) {
  CMenuItem item;
  item.SetSettings(0xABCD1234);
  EXPECT_EQ(item.SettingsLowHalf(), 0x1234);
  EXPECT_EQ(item.SettingsNibble(), 0xDU);
  EXPECT_EQ(item.SetSettingsLowHalf(0xFFFF), 1);
  EXPECT_EQ(item.settings, 0xABCDFFFF);
  EXPECT_EQ(item.SetSettingsLowHalf(0x0001), 1);
  EXPECT_EQ(item.AddSettingsNibble(0xF2), 1) << "the other bits of the argument are not taken";
  EXPECT_EQ(item.settings, 0xABCF0001);
}

// --- Stream forms ---

template <class Record>
void ExpectStreamForm(Record record, const std::string& form) {
  Record loaded;
  Archive loading{std::string_view(form)};
  loaded.Serialize(loading);
  EXPECT_FALSE(loading.Failed());
  for (Record* each : {&record, &loaded}) {
    std::string bytes;
    Archive storing(&bytes);
    each->Serialize(storing);
    EXPECT_EQ(bytes, form);
  }
}

TEST(Records, EachHasItsOwnOrderInAStream) {
  ExpectStreamForm(Item(), "\4name\4path\7address\3tag\1\0\0\0\2\0\0\0"s);

  CEmailEntry email;
  email.Set(EntryKey("Ann"), "a@b");
  email.flags = -1;
  ExpectStreamForm(email, "\3Ann\3a@b\xFF\xFF\xFF\xFF"s);

  CFaxEntry fax;
  fax.Set(EntryKey("Ann"), "123", "x");
  ExpectStreamForm(fax, "\3Ann\003123\1x"s);

  CUserEntry user;
  const std::uint32_t flags = 0x11;
  const std::uint32_t nibbles = 0x23;
  user.Set("Ann", "pw", "3rd", "4th", &flags, &nibbles);
  user.tag = 9;  // no part of the form
  ExpectStreamForm(user, "\3Ann\0034th\0033rd\2pw\x11\0\0\0\x23\0\0\0"s);
}

// --- E-mail and fax entries ---

TEST(CEmailEntry, SetTakesBothTextsOrNone) {
  CEmailEntry entry;
  entry.Set(EntryKey("Ann"), "a@b");
  entry.flags = 1;
  EntryKey unterminated;
  std::memset(static_cast<void*>(&unterminated), 'x', sizeof unterminated);
  EXPECT_EQ(entry.Set(EntryKey("Cy"), nullptr), 0);
  EXPECT_EQ(entry.Set(EntryKey("Cy"), std::string(256, 'x').c_str()), 0);
  EXPECT_EQ(entry.Set(unterminated, "c@d"), 0);
  EXPECT_EQ(entry.name.View(), "Ann");
  EXPECT_EQ(entry.address.View(), "a@b");
  EXPECT_EQ(entry.flags, 1);
  EXPECT_EQ(entry.Set(EntryKey("Cy"), "c@d"), 1);
  EXPECT_EQ(entry.flags, 0);
}

TEST(CEmailEntry, MatchesOnlyWhatDiffersInBothTexts) {
  const auto entry = [](std::string_view name, const char* address, std::int32_t flags) {
    CEmailEntry made;
    made.Set(EntryKey(name), address);
    made.flags = flags;
    return made;
  };
  const CEmailEntry base = entry("Ann", "a", 1);
  EXPECT_TRUE(CEmailEntry::Matches(base, entry("Ben", "b", 1)));
  for (const CEmailEntry& other :
       {base, entry("Ann", "b", 1), entry("Ben", "a", 1), entry("Ben", "b", 0)}) {
    EXPECT_TRUE(CEmailEntry::Differs(base, other));
  }
}

TEST(CFaxEntry, SetsNumberAndThirdTextEachForItself) {
  for (const bool numberFits : {false, true}) {
    for (const bool thirdFits : {false, true}) {
      SCOPED_TRACE(testing::Message() << numberFits << thirdFits);
      CFaxEntry entry;
      entry.Set(EntryKey("Ann"), "0", "old");
      const int stored = entry.Set(EntryKey("Ben"), std::string(numberFits ? 79 : 80, '1'),
                                   std::string(thirdFits ? 10 : 11, 't'));
      EXPECT_EQ(stored, numberFits || thirdFits ? 1 : 0);
      EXPECT_EQ(entry.name.View(), numberFits ? "Ben" : "Ann");
      EXPECT_EQ(entry.number.Length(), numberFits ? 79U : 1U);
      EXPECT_EQ(entry.third.Length(), thirdFits ? 10U : 3U);
    }
  }
}

TEST(CFaxEntry, IsToldByItsNumber) {
  CFaxEntry entry;
  entry.SetThird("3");
  EXPECT_TRUE(entry.IsBlank());
  for (const char* number : {"0", "x9", "+/:"}) {
    entry.SetNumber(number);
    EXPECT_FALSE(entry.IsBlank());
    EXPECT_EQ(entry.HasDigit(), number == "+/:"sv ? 0 : 1) << number;
  }
  CFaxEntry other = entry;
  other.SetName("Ben");
  EXPECT_TRUE(CFaxEntry::Matches(entry, other));
  other.SetNumber("+/");
  EXPECT_TRUE(CFaxEntry::Differs(entry, other));
}

// --- Accounts ---

TEST(CUserEntry, SetTestsEveryTextButTheName) {
  const std::uint32_t flags = 1;
  const std::uint32_t nibbles = 2;
  CUserEntry user;
  user.tag = 9;
  for (const std::size_t tooLong : {0U, 1U, 2U, 3U}) {  // the last one: none
    std::string texts[] = {std::string(15, 'p'), std::string(255, 't'), std::string(255, 'f'), ""};
    texts[tooLong] += 'x';
    EXPECT_EQ(user.Set(std::string(40, 'n'), texts[0], texts[1], texts[2], &flags, &nibbles),
              tooLong == 3 ? 1 : 0);
    EXPECT_EQ(user.name.IsEmpty(), tooLong != 3);
    EXPECT_EQ(user.IsValid(), tooLong != 3);
    EXPECT_EQ(user.nibbles, tooLong == 3 ? 2U : 0U);
  }
  EXPECT_EQ(user.tag, 9U);
}

TEST(CUserEntry, EqualsByItsTexts) {
  CUserEntry a;
  CUserEntry b;
  b.tag = b.flags = b.nibbles = 7;
  EXPECT_TRUE(a.Equals(b));
  using Setter = int (CUserEntry::*)(std::string_view);
  for (const Setter set : {&CUserEntry::SetName, &CUserEntry::SetPassword, &CUserEntry::SetThird,
                           &CUserEntry::SetFourth}) {
    CUserEntry other;
    (other.*set)("other");
    EXPECT_TRUE(a.Differs(other));
  }
}

TEST(CUserEntry, NibblesGrowAndStayApart) {
  CUserEntry user;
  const std::uint8_t bits[] = {2, 5, 0xF8};
  EXPECT_EQ(user.AddLowNibble(&bits[0]), 1);
  EXPECT_EQ(user.AddLowNibble(&bits[1]), 1);
  EXPECT_EQ(user.AddHighNibble(&bits[2]), 1);
  EXPECT_EQ(user.nibbles, 0x87U);
  EXPECT_EQ(user.LowNibble(), 7U);
  EXPECT_EQ(user.HighNibble(), 8U);
}

TEST(CUserEntry, TellsHostsByTheirAddress) {
  CUserEntry user;
  for (const std::string_view text : {"10.0.0.1"sv, "host"sv}) {
    user.SetThird(text);
    EXPECT_EQ(user.IsDottedAddress(), text != "host") << text;
  }
}

// --- What a server can leave in a record ---

// A record that a server filled without a NUL is valid once its texts are ended, and is stored as
// far as its fields go: each text is one character longer than its field holds. One text without an
// end makes it invalid.
template <class Record, class... Texts>
void ExpectEndsItsTexts(Texts Record::*... texts) {
  Record record;
  std::memset(static_cast<void*>(&record), 'x', sizeof record);
  std::string bytes;
  Archive storing(&bytes);
  record.Serialize(storing);
  EXPECT_LT(bytes.size(), sizeof record + 16);
  Record loaded;
  Archive loading{std::string_view(bytes)};
  loaded.Serialize(loading);
  EXPECT_FALSE(loading.Failed());
  EXPECT_EQ(loading.Remaining(), 0U);
  EXPECT_TRUE(loaded.IsValid());

  EXPECT_FALSE(record.IsValid());
  record.Terminate();
  EXPECT_TRUE(record.IsValid());
  EXPECT_EQ(std::strlen(record.name.c_str()), 31U);

  const auto expectInvalid = [](auto text) {
    Record one;
    std::memset(static_cast<void*>(&(one.*text)), 'x', sizeof(one.*text));
    EXPECT_FALSE(one.IsValid());
  };
  (expectInvalid(texts), ...);
}

TEST(ServedRecord, IsValidOnceItsTextsAreEnded) {
  ExpectEndsItsTexts(&CMenuItem::name, &CMenuItem::path, &CMenuItem::appTag, &CMenuItem::ipAddress);
  ExpectEndsItsTexts(&CEmailEntry::name, &CEmailEntry::address);
  ExpectEndsItsTexts(&CFaxEntry::name, &CFaxEntry::number, &CFaxEntry::third);
  ExpectEndsItsTexts(&CUserEntry::name, &CUserEntry::password, &CUserEntry::third,
                     &CUserEntry::fourth);
}

}  // namespace
}  // namespace quillkit
