// The records of the server boundary: what they hold, and how they are stored.

#include "bridge/records.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <string_view>
#include <type_traits>

#include "tests/support/email_entry.h"
#include "tests/support/stream_form.h"

namespace quillkit {
namespace {

using namespace std::literals;
using M = CMenuItem;
using E = CEmailEntry;
using F = CFaxEntry;
using U = CUserEntry;

M Item() {
  M item;
  item.SetAll("name", "path", "tag", "address", 1, 2);
  return item;
}

F Fax() {
  F fax;
  fax.Set(EntryKey("Ann"), "123", "x");
  return fax;
}

U User() {
  U user;
  const std::uint32_t words[] = {0x11, 0x23, 9};
  user.Set("Ann", "pw", "3rd", "4th", &words[0], &words[1]);
  EXPECT_EQ(user.SetTag(&words[2]), 1);
  return user;
}

// --- All records ---

template <class Record>
void ExpectStreamForm(Record record, const std::string& form) {
  EXPECT_EQ(Stored(record), form);
  Record loaded;
  EXPECT_FALSE(Load(loaded, form).Failed());
  EXPECT_EQ(Stored(loaded), form);
}

TEST(Records, SerializeTheirFieldsInAFixedOrder) {
  ExpectStreamForm(Item(), "\4name\4path\7address\3tag\1\0\0\0\2\0\0\0"s);
  ExpectStreamForm(MakeEntry("Ann", "a@b", -1), "\3Ann\3a@b\xFF\xFF\xFF\xFF"s);
  ExpectStreamForm(Fax(), "\3Ann\003123\1x"s);
  ExpectStreamForm(User(), "\3Ann\0034th\0033rd\2pw\x11\0\0\0\x23\0\0\0"s);  // without the tag
}

// Expects that a text of a record takes what fits, and that the record is invalid while the text
// has no NUL.
template <class Record, class Text>
void ExpectText(Text Record::*text, int (Record::*set)(std::string_view),
                std::type_identity_t<const char* (Record::*)() const> get = nullptr,
                std::type_identity_t<void (Record::*)(std::string&) const> copy = nullptr) {
  Record record;
  const std::string longest(sizeof(Text) - 1, 'x');
  EXPECT_EQ((record.*set)(longest + 'x'), 0);
  EXPECT_TRUE((record.*text).IsEmpty());
  EXPECT_EQ((record.*set)(longest), 1);
  EXPECT_EQ((record.*text).View(), longest);
  if (get != nullptr) {
    std::string copied;
    (record.*copy)(copied);
    EXPECT_EQ(copied, longest);
    EXPECT_EQ((record.*get)(), longest);
  }
  std::memset(static_cast<void*>(&(record.*text)), 'x', sizeof(Text));
  EXPECT_FALSE(record.IsValid());
  Record loaded;
  Load(loaded, Stored(record));
  EXPECT_TRUE(loaded.IsValid()) << "a loaded text is terminated";
  record.Terminate();
  EXPECT_TRUE(record.IsValid());
  EXPECT_EQ((record.*text).c_str(), longest);
}

TEST(Records, RejectATextThatDoesNotFitItsField) {
  ExpectText(&M::name, &M::SetName);
  ExpectText(&M::path, &M::SetPath);
  ExpectText(&M::appTag, &M::SetAppTag);
  ExpectText(&M::ipAddress, &M::SetIPAddress);
  ExpectText(&E::name, &E::SetName, &E::Name, &E::GetName);
  ExpectText(&E::address, &E::SetAddress, &E::Address, &E::GetAddress);
  ExpectText(&F::name, &F::SetName, &F::Name, &F::GetName);
  ExpectText(&F::number, &F::SetNumber, &F::Number, &F::GetNumber);
  ExpectText(&F::third, &F::SetThird, &F::Third, &F::GetThird);
  ExpectText(&U::name, &U::SetName, &U::Name, &U::GetName);
  ExpectText(&U::password, &U::SetPassword, &U::Password, &U::GetPassword);
  ExpectText(&U::third, &U::SetThird, &U::Third, &U::GetThird);
  ExpectText(&U::fourth, &U::SetFourth, &U::Fourth, &U::GetFourth);
}

// --- Books ---

TEST(ABIdent, AssignmentCopiesTheNameButNotTheKindAndSetKindIgnoresNone) {
  ABIdent book(BookKind::kFaxList, "Scan");
  EXPECT_NE(book, ABIdent(BookKind::kKeyItems, "Scan"));
  EXPECT_NE(book, ABIdent(BookKind::kFaxList, "scan"));
  book = ABIdent(BookKind::kFax, "AB");
  EXPECT_EQ(book, ABIdent(BookKind::kFaxList, "AB"));
  EXPECT_EQ(book.name.c_str()[3], 'n') << "only the text is copied";
  const BookKind kinds[] = {BookKind::kNone, BookKind::kFax};
  EXPECT_EQ(book.SetKind(nullptr) + book.SetKind(&kinds[0]), 0);
  EXPECT_EQ(book.kind, BookKind::kFaxList);
  EXPECT_EQ(book.SetKind(&kinds[1]), 0);
  EXPECT_EQ(book.kind, BookKind::kFax);
}

// --- Menu items ---

TEST(CMenuItem, SetAllStopsAtTheFirstTextThatIsTooLong) {
  const char* const after[] = {"\4name", "\1n\4path\7address\3tag\1", "\1n\1p\7address\3tag\1",
                               "\1n\1p\7address\1t\1", "\1n\1p\1a\1t\7"};
  for (std::size_t tooLong = 0; tooLong <= 4; ++tooLong) {  // its place; the last one: none
    SCOPED_TRACE(tooLong);
    std::string texts[] = {"n", "p", "t", "a", ""};
    texts[tooLong] = std::string(256, 'x');
    M item = Item();
    EXPECT_EQ(item.SetAll(texts[0], texts[1], texts[2], texts[3], 7, 8), tooLong == 4 ? 1 : 0);
    EXPECT_TRUE(Stored(item).starts_with(after[tooLong]));
    EXPECT_EQ(item.fileFormat, tooLong == 4 ? 8U : 2U);
  }
}

TEST(CMenuItem, ReplacesTheLowHalfOfItsSettingsAndAddsToTheNibble) {
  M item;
  item.SetSettings(0xABCD1234);
  EXPECT_EQ(item.SettingsLowHalf(), 0x1234);
  EXPECT_EQ(item.SettingsNibble(), 0xDU);
  EXPECT_EQ(item.SetSettingsLowHalf(1), 1);
  EXPECT_EQ(item.settings, 0xABCD0001);
  EXPECT_EQ(item.AddSettingsNibble(0xF2), 1) << "only the low four bits of the argument count";
  EXPECT_EQ(item.settings, 0xABCF0001);
}

// --- E-mail and fax entries ---

TEST(CEmailEntry, SetStoresBothTextsOrNone) {
  E entry = MakeEntry("Ann", "a@b", 1);
  EXPECT_EQ(entry.Flags(), 1);
  EntryKey unterminated;
  std::memset(static_cast<void*>(&unterminated), 'x', sizeof unterminated);
  EXPECT_EQ(entry.Set(EntryKey("Cy"), nullptr), 0);
  EXPECT_EQ(entry.Set(EntryKey("Cy"), std::string(256, 'x').c_str()), 0);
  EXPECT_EQ(entry.Set(unterminated, "c@d"), 0);
  EXPECT_EQ(Stored(entry), Stored(MakeEntry("Ann", "a@b", 1)));
  EXPECT_EQ(entry.Set(EntryKey("Cy"), "c@d"), 1);
  EXPECT_EQ(Stored(entry), Stored(MakeEntry("Cy", "c@d", 0)));
}

TEST(CEmailEntry, MatchesWhereOnlyTheFlagsAreEqual) {
  const E base = MakeEntry("Ann", "a", 1);
  EXPECT_FALSE(E::Differs(base, MakeEntry("Ben", "b", 1)));
  for (E other :
       {base, MakeEntry("Ann", "b", 1), MakeEntry("Ben", "a", 1), MakeEntry("Ben", "b", 0)}) {
    EXPECT_TRUE(E::Differs(base, other)) << Stored(other);
  }
}

TEST(CFaxEntry, SetStoresNumberAndThirdTextIndependently) {
  const std::string tooLong(80, '1');
  F entry = Fax();
  EXPECT_EQ(entry.Set(EntryKey("Ben"), tooLong, tooLong), 0);
  EXPECT_EQ(Stored(entry), Stored(Fax()));
  EXPECT_EQ(entry.Set(EntryKey("Ben"), tooLong, "y"), 1);
  EXPECT_EQ(Stored(entry), "\3Ann\003123\1y");
  EXPECT_EQ(entry.Set(EntryKey("Ben"), "4", tooLong), 1);
  EXPECT_EQ(Stored(entry), "\3Ben\0014\1y");
}

TEST(CFaxEntry, IsComparedByItsNumber) {
  F entry;
  entry.SetThird("3");
  EXPECT_TRUE(entry.IsBlank());
  for (const char* number : {"0", "x9", "+/:"}) {
    entry.SetNumber(number);
    EXPECT_FALSE(entry.IsBlank());
    EXPECT_EQ(entry.HasDigit(), number == "+/:"sv ? 0 : 1) << number;
  }
  F other = entry;
  other.SetName("Ben");
  EXPECT_TRUE(F::Matches(entry, other));
  other.SetNumber("+/");
  EXPECT_TRUE(F::Differs(entry, other));
}

// --- Accounts ---

TEST(CUserEntry, SetChecksEveryTextButTheName) {
  for (std::size_t tooLong = 0; tooLong <= 3; ++tooLong) {  // its place; the last one: none
    SCOPED_TRACE(tooLong);
    const std::uint32_t word = 2;
    std::string texts[] = {std::string(15, 'p'), std::string(255, 't'), std::string(255, 'f'), ""};
    texts[tooLong] += 'x';
    U user;
    EXPECT_EQ(user.Set(std::string(40, 'n'), texts[0], texts[1], texts[2], &word, &word),
              tooLong == 3 ? 1 : 0);
    EXPECT_EQ(user.name.Length(), tooLong == 3 ? 32U : 0U) << "a long name has no NUL";
    EXPECT_EQ(user.flags + user.nibbles, tooLong == 3 ? 4U : 0U);
  }
}

TEST(CUserEntry, IsComparedByItsTexts) {
  const U none;
  for (const auto set : {&U::SetName, &U::SetPassword, &U::SetThird, &U::SetFourth}) {
    U other;
    other.tag = other.flags = other.nibbles = 7;
    EXPECT_FALSE(none.Differs(other));
    (other.*set)("other");
    EXPECT_TRUE(none.Differs(other));
  }
  EXPECT_FALSE(User().IsDottedAddress());
  U host;
  host.SetThird("10.0.0.1");
  EXPECT_TRUE(host.IsDottedAddress());
}

TEST(CUserEntry, KeepsItsWordsApartAndAddsBitsToOneNibbleOnly) {
  U user = User();
  std::uint32_t words[3] = {};
  user.GetTag(&words[0]);
  user.GetFlags(&words[1]);
  user.GetNibbles(&words[2]);
  EXPECT_THAT(words, testing::ElementsAre(*user.Tag(), *user.Flags(), *user.Nibbles()));
  EXPECT_THAT(words, testing::ElementsAre(9, 0x11, 0x23));
  EXPECT_TRUE(user.HasTag());
  EXPECT_FALSE(U().HasTag());
  EXPECT_EQ(user.SetFlags(&words[2]) + user.SetNibbles(&words[1]), 2);
  const std::uint8_t bits[] = {2, 0xF8};
  EXPECT_EQ(user.AddLowNibble(&bits[0]) + user.AddHighNibble(&bits[1]), 2);
  EXPECT_EQ(user.flags, 0x23U);
  EXPECT_EQ(user.nibbles, 0x93U);
  EXPECT_EQ(user.LowNibble(), 3U);
  EXPECT_EQ(user.HighNibble(), 9U);
}

}  // namespace
}  // namespace quillkit
