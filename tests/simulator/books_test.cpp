// Books and entries: what may be created, renamed and deleted, and which objects change together.

#include "tests/simulator/server_fixture.h"

namespace quillkit {
namespace {

using enum BookKind;

class BooksTest : public ServerTest {
 protected:
  BooksTest() { LogInAsAdministrator(); }
};

TEST_F(BooksTest, RefusesToCreateAFixedBookAndEmptiesThreeOfThemOnDelete) {
  PutEmail("Ann");
  Expect(kDuplicateBook, {"CreateAB 1:EMAILAB", "CreateAB 2:FAXAB", "CreateAB 4:USERSAB",
                          "CreateAB 8:PRINTERSAB", "CreateAB 16:PRIVATEAB", "CreateAB 256:TOPAB",
                          "CreateAB 1024:LOGAB", "CreateAB 2048:MODELAB"});
  Expect(kNoError, {"DeleteAB 1:EMAILAB", "DeleteAB 8:PRINTERSAB", "DeleteAB 16:PRIVATEAB"});
  Expect(kStaticBook, {"DeleteAB 2:FAXAB", "DeleteAB 4:USERSAB", "DeleteAB 256:TOPAB",
                       "DeleteAB 1024:LOGAB", "DeleteAB 2048:MODELAB"});
  Expect(kNoSuchBook,
         {"DeleteAB 1:OTHER", "DeleteAB 2:OTHER", "DeleteAB 4:OTHER", "DeleteAB 8:OTHER",
          "DeleteAB 16:OTHER", "DeleteAB 256:OTHER", "DeleteAB 1024:OTHER", "DeleteAB 2048:OTHER",
          "CreateAB 0:One", "CreateAB 3:One", "CreateAB 257:One", "CreateAB 4096:One"});
  EXPECT_EQ(Size(kEmail), 0);
}

TEST_F(BooksTest, CreatesDeletesAndRenamesNamedBooks) {
  for (const BookKind kind : {kPublicList, kPrivateList, kKeyItems, kFaxList}) {
    const std::string prefix = std::to_string(static_cast<unsigned>(kind)) + ':';
    const std::string one = prefix + "One";
    Expect(kNoSuchBook, {"DeleteAB " + one});
    Expect(kInvalidField, {"CreateAB " + prefix});
    Expect(kNoError, {"CreateAB " + one});
    EXPECT_EQ(Size(kind, "One"), 0);
    Expect(kDuplicateBook, {"CreateAB " + one, "CreateAB " + prefix + "PRIVATEAB"});
    Expect(kNoError, {"DeleteAB " + one});
    EXPECT_EQ(Size(kind, "One"), -1);
    if (kind != kPublicList && kind != kPrivateList) continue;

    // A list is renamed as an entry of a book of this name.
    const std::string rename = "ModifyEntry " + prefix + "PRIVATEAB ";
    Expect(kNoError,
           {"CreateAB " + prefix + "Other", "CreateAB " + one, "CreateEntry " + one + " Ann"});
    Expect(kNoSuchBook, {rename + "None New"});
    Expect(kDuplicateBook, {rename + "One Other"});
    Expect(kInvalidField, {rename + "One ''"});
    Expect(kNoError, {rename + "One New"});
    EXPECT_EQ(Size(kind, "One"), -1);
    EXPECT_EQ(Size(kind, "New"), 1);
  }
}

TEST_F(BooksTest, ChecksAnEntryChangeInAFixedOrder) {
  CEmailEntry entry;
  EXPECT_EQ(SimulatorFindEntry(BookKind::kPublicList, "Team", nullptr, "Ann", &entry), 0);
  Expect(kNoSuchBook, {"CreateEntry 64:Team ''"});
  Expect(kNoError, {"CreateAB 64:Team"});
  Expect(kInvalidField, {"CreateEntry 64:Team ''"});
  Expect(kNoError, {"CreateEntry 64:Team Ann"});
  Expect(kNameConflict, {"CreateEntry 64:Team Ann"});
  Expect(kNoError, {"CreateEntry 64:Team ann"});
  Expect(kDataNotFound, {"ModifyEntry 64:Team Bob ''"});
  Expect(kInvalidField, {"ModifyEntry 64:Team Ann ''"});
  Expect(kNameConflict, {"ModifyEntry 64:Team Ann ann"});
  Expect(kNoError, {"ModifyEntry 64:Team Ann Cid", "ReadEntryProperties 64:Team Cid Cid"});
  Expect(kDataNotFound, {"DeleteEntry 64:Team Ann"});
  Expect(kNoError, {"DeleteEntry 64:Team Cid"});
  EXPECT_EQ(Size(kPublicList, "Team"), 1);
}

TEST_F(BooksTest, RefusesATextWithoutANulAndReadsNoNamePastItsField) {
  CEmailEntry full = MakeEntry("Ann");
  FillUp(full.address, 'x');
  EXPECT_EQ(IMSPCreateEntry(&email, &full), kInvalidField);
  EXPECT_EQ(SimulatorPutEntry(kEmail, nullptr, nullptr, &full), 0);
  PutEmail(std::string(31, 'x'));
  EntryKey key;
  FillUp(key.name, 'x');
  EXPECT_EQ(IMSPReadEntryProperties(&email, &key, &full), kDataNotFound);
  ABIdent list(kPublicList, "");
  FillUp(list.name, 'x');
  EXPECT_EQ(IMSPCreateAB(&list), kInvalidField);
}

TEST_F(BooksTest, RefusesNullArgumentsAndANameInTheSelectorOfBooks) {
  Expect(kInvalidField, {"IOCtl", "IOCtl 7", "CheckString - 5", "BatchConfiguration",
                         "ChangeIdentity", "ClearAB", "SizeofAB", "CreateEntry 1:EMAILAB",
                         "ReadEntryProperties 1:EMAILAB - Ann", "ReadEntryProperties 1:EMAILAB Ann",
                         "ModifyEntry 1:EMAILAB Ann", "DeleteEntry 1:EMAILAB"});
  CEmailEntry record;
  std::uint32_t count = 1;
  EXPECT_EQ(IMSPSizeofAB(&email, nullptr, nullptr), kInvalidField);
  EXPECT_EQ(IMSPReadAB(&email, nullptr, nullptr, &(count = 1), 1), kInvalidField);
  EXPECT_EQ(IMSPReadAB(&email, nullptr, &record, nullptr, 1), kInvalidField);
  EXPECT_EQ(IMSPListABEntries(&email, nullptr, nullptr, &(count = 1), 1), kInvalidField);
  EXPECT_EQ(IMSPListAB(&email, nullptr, &email, nullptr, 1), kInvalidField);
  ABIdent team(kPublicList, "Team");
  EXPECT_EQ(IMSPListAB(&team, nullptr, &email, &(count = 1), 1), kInvalidField);
  EXPECT_EQ(IMSPReadPageBoundaries(&email, nullptr, &(count = 1)), kInvalidField);
}

TEST_F(BooksTest, ChangesTheBookOfAKeyTogetherWithItsEntry) {
  Expect(kNoError, {"CreateAB 512:Scan", "CreateAB 512:Mail", "CreateEntry 512:Mail item"});
  EXPECT_EQ(Size(kTop), 2);
  Expect(kNameConflict, {"ModifyEntry 256:TOPAB Mail Scan"});
  Expect(kNoError, {"ModifyEntry 256:TOPAB Mail Mail", "ModifyEntry 256:TOPAB Mail Copy"});
  EXPECT_EQ(Size(kKeyItems, "Mail"), -1);
  EXPECT_EQ(Size(kKeyItems, "Copy"), 1);
  Expect(kNoError, {"ClearAB 256:TOPAB S*"});
  EXPECT_EQ(Size(kKeyItems, "Scan"), -1);
  Expect(kNoError, {"DeleteAB 512:Copy"});
  EXPECT_EQ(Size(kTop), 0);
}

TEST_F(BooksTest, ReturnsBookFullAtALimitUntilItIsRaised) {
  struct Case {
    const char* limit;
    BookKind kind;
    const char* book;  // null: each entry has a list of its own
    std::int32_t most, before;
    std::string call;
  };
  const Case cases[] = {
      {"keys", kTop, "", 11, 0, "CreateAB 512:New"},
      {"items", kKeyItems, "Scan", 512, 0, "CreateEntry 512:Scan New"},
      {"email", kEmail, "", 3, 0, "CreateEntry 1:EMAILAB New"},
      {"fax", kFax, "", 2048, 0, "CreateEntry 2:FAXAB New"},
      {"accounts", kUsers, "", 4096, 3, "CreateEntry 4:USERSAB New"},
      {"printers", kPrinters, "", 256, 0, "CreateEntry 8:PRINTERSAB New"},
      {"models", kModels, "", 16, 0, "CreateEntry 2048:MODELAB New"},
      {"lists", kPublicList, nullptr, 512, 0, "CreateAB 64:New"},
      {"lists", kFaxList, nullptr, 512, 0, "CreateAB 768:New"},
      {"members", kPublicList, "Team", 512, 0, "CreateEntry 64:Team New"},
      {"members", kPrivateList, "Team", 512, 0, "CreateEntry 128:Team New"},
      {"members", kFaxList, "Team", 512, 0, "CreateEntry 768:Team New"},
      {"private-lists", kPrivateList, nullptr, 100, 0, "CreateAB 128:New"},
      {"private-entries", kPrivateEmail, "", 2000, 0, "CreateEntry 16:PRIVATEAB New"},
  };
  for (const Case& each : cases) {
    SCOPED_TRACE(each.call);
    SimulatorReset();
    LogInAsAdministrator();
    SimulatorSetLimit("email", 3);
    for (std::int32_t i = each.before; i < each.most; ++i) {
      const std::string name = std::to_string(i);
      std::string record = name;
      record.resize(2000);  // longer than any record
      SimulatorPutEntry(each.kind, each.book != nullptr ? each.book : name.c_str(), "ADMINISTRATOR",
                        record.data());
    }
    Expect(kBookFull, {each.call});
    SimulatorSetLimit(each.limit, static_cast<std::uint32_t>(each.most) + 1);
    Expect(kNoError, {each.call});
    SimulatorSetLimit(each.limit, 0);
    Expect(kNoError, {each.call + '2'});
  }
  EXPECT_EQ(SimulatorSetLimit("key", 3), 0);
}

TEST_F(BooksTest, MovesPrivateBooksWithTheirAccountAndKeepsTheFixedAccounts) {
  Expect(kNoError, {"CreateEntry 4:USERSAB Eve"});
  Expect(kNameConflict, {"ModifyEntry 4:USERSAB TOOLKIT Eve"});
  Expect(kAccessDenied, {"ModifyEntry 4:USERSAB TOOLKIT Eva", "DeleteEntry 4:USERSAB GUEST"});
  const CEmailEntry entry = MakeEntry("Ann");
  SimulatorPutEntry(kPrivateEmail, nullptr, "Eve", &entry);
  SimulatorPutEntry(kPrivateList, "Team", "Eve", &entry);
  Expect(kNoError, {"ModifyEntry 4:USERSAB Eve Eva"});
  EXPECT_EQ(Size(kPrivateEmail, "", "Eve"), 0);
  EXPECT_EQ(Size(kPrivateEmail, "", "Eva"), 1);
  EXPECT_EQ(Size(kPrivateList, "Team", "Eva"), 1);
  Expect(kNoError, {"ClearAB 4:USERSAB"});
  EXPECT_EQ(Size(kUsers), 3);
  EXPECT_EQ(Size(kPrivateList, "Team", "Eva"), -1);
}

}  // namespace
}  // namespace quillkit
