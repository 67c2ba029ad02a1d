// Books and entries: what may be created, renamed and deleted, and what goes with what.

#include "bridge/status.h"
#include "tests/simulator/server_fixture.h"
#include "tests/support/menu_item.h"

namespace quillkit {
namespace {

class BooksTest : public ServerTest {
 protected:
  BooksTest() { LogInAsAdministrator(); }

  static std::int32_t Size(BookKind kind, const char* book = "") {
    return SimulatorBookSize(kind, book, "ADMINISTRATOR");
  }
  static Status Create(BookKind kind, std::string_view name) {
    ABIdent book(kind, name);
    return IMSPCreateAB(&book);
  }
  static Status Delete(BookKind kind, std::string_view name) {
    ABIdent book(kind, name);
    return IMSPDeleteAB(&book);
  }
  template <class Record>
  static Status CreateEntry(BookKind kind, std::string_view book, Record record) {
    ABIdent ident(kind, book);
    return IMSPCreateEntry(&ident, &record);
  }
  template <class Record>
  static Status ModifyEntry(BookKind kind, std::string_view book, std::string_view name,
                            Record record) {
    ABIdent ident(kind, book);
    EntryKey key(name);
    return IMSPModifyEntry(&ident, &key, &record);
  }
  static Status DeleteEntry(BookKind kind, std::string_view book, std::string_view name) {
    ABIdent ident(kind, book);
    EntryKey key(name);
    return IMSPDeleteEntry(&ident, &key);
  }
  // A key, and one item in it that brings it along.
  static void MakeKey(const char* key) {
    const CMenuItem item = MakeItem("item");
    SimulatorPutEntry(BookKind::kKeyItems, key, nullptr, &item);
  }
};

TEST_F(BooksTest, FixedBooksAreThereAndStay) {
  PutEmail("Ann");
  const struct {
    BookKind kind;
    std::string_view name;
    Status deleted;
  } books[] = {
      {BookKind::kEmail, kEmailBook, kNoError},
      {BookKind::kFax, kFaxBook, kStaticBook},
      {BookKind::kUsers, kUsersBook, kStaticBook},
      {BookKind::kPrinters, kPrintersBook, kNoError},
      {BookKind::kPrivateEmail, kPrivateBook, kNoError},
      {BookKind::kTop, kTopBook, kStaticBook},
      {BookKind::kLog, kLogBook, kStaticBook},
      {BookKind::kModels, kModelsBook, kStaticBook},
  };
  for (const auto& each : books) {
    SCOPED_TRACE(each.name);
    EXPECT_EQ(Create(each.kind, each.name), kDuplicateBook);
    EXPECT_EQ(Delete(each.kind, each.name), each.deleted);
    EXPECT_EQ(Delete(each.kind, "OTHERAB"), kNoSuchBook);
  }
  EXPECT_EQ(Size(BookKind::kEmail), 0) << "deleting the book empties it";
  for (const std::uint32_t kind : {0U, 3U, 257U, 4096U, 0xFFFFFFFFU}) {
    EXPECT_EQ(Create(static_cast<BookKind>(kind), "One"), kNoSuchBook);
  }
}

TEST_F(BooksTest, NamedBooksComeAndGo) {
  for (const BookKind kind :
       {BookKind::kPublicList, BookKind::kPrivateList, BookKind::kKeyItems, BookKind::kFaxList}) {
    SCOPED_TRACE(static_cast<unsigned>(kind));
    EXPECT_EQ(Delete(kind, "One"), kNoSuchBook);
    EXPECT_EQ(Create(kind, ""), kInvalidField);
    EXPECT_EQ(Create(kind, kPrivateBook), kDuplicateBook);
    EXPECT_EQ(Create(kind, "One"), kNoError);
    EXPECT_EQ(Create(kind, "One"), kDuplicateBook);
    EXPECT_EQ(Size(kind, "One"), 0);
    EXPECT_EQ(Delete(kind, "One"), kNoError);
    EXPECT_EQ(Size(kind, "One"), -1);
  }
}

TEST_F(BooksTest, EntriesAreCheckedInThisOrder) {
  const BookKind list = BookKind::kPublicList;
  EXPECT_EQ(CreateEntry(list, "None", MakeEmail("")), kNoSuchBook);
  Create(list, "Team");
  EXPECT_EQ(CreateEntry(list, "Team", MakeEmail("")), kInvalidField);
  EXPECT_EQ(CreateEntry(list, "Team", MakeEmail("Ann")), kNoError);
  EXPECT_EQ(CreateEntry(list, "Team", MakeEmail("Ann")), kNameConflict);
  EXPECT_EQ(CreateEntry(list, "Team", MakeEmail("ann")), kNoError);
  EXPECT_EQ(ModifyEntry(list, "Team", "Bob", MakeEmail("")), kDataNotFound);
  EXPECT_EQ(ModifyEntry(list, "Team", "Ann", MakeEmail("")), kInvalidField);
  EXPECT_EQ(ModifyEntry(list, "Team", "Ann", MakeEmail("ann")), kNameConflict);
  EXPECT_EQ(ModifyEntry(list, "Team", "Ann", MakeEmail("Cid", "new")), kNoError);
  CEmailEntry entry;
  EXPECT_EQ(SimulatorFindEntry(list, "Team", nullptr, "Cid", &entry), 1);
  EXPECT_EQ(entry.address, "new");
  EXPECT_EQ(DeleteEntry(list, "Team", "Ann"), kDataNotFound);
  EXPECT_EQ(DeleteEntry(list, "Team", "Cid"), kNoError);
  EXPECT_EQ(Size(list, "Team"), 1);
}

// A field without a NUL is refused, and no name is read past its field.
TEST_F(BooksTest, RecordsHaveToEndTheirTexts) {
  CEmailEntry full = MakeEmail("Ann");
  FillUp(full.address, 'x');
  EXPECT_EQ(CreateEntry(BookKind::kEmail, kEmailBook, full), kInvalidField);
  EXPECT_EQ(SimulatorPutEntry(BookKind::kEmail, nullptr, nullptr, &full), 0);
  PutEmail(std::string(31, 'x'));
  ABIdent book(BookKind::kEmail, kEmailBook);
  EntryKey key;
  FillUp(key.name, 'x');
  EXPECT_EQ(IMSPReadEntryProperties(&book, &key, &full), kDataNotFound);
  FillUp(book.name, 'x');
  book.kind = BookKind::kPublicList;
  EXPECT_EQ(IMSPCreateAB(&book), kInvalidField);
}

TEST_F(BooksTest, NullArgumentsAreInvalid) {
  ABIdent book(BookKind::kEmail, kEmailBook);
  EntryKey key("Ann");
  CEmailEntry record = MakeEmail("Ann");
  std::uint32_t count = 1;
  const Status results[] = {IMSPIOCtl(nullptr),
                            IMSPCheckString(nullptr, 5),
                            IMSPBatchConfiguration(nullptr),
                            IMSPChangeIdentity(nullptr),
                            IMSPClearAB(nullptr, nullptr),
                            IMSPSizeofAB(nullptr, nullptr, &count),
                            IMSPSizeofAB(&book, nullptr, nullptr),
                            IMSPReadAB(&book, nullptr, nullptr, &(count = 1), 1),
                            IMSPReadAB(&book, nullptr, &record, nullptr, 1),
                            IMSPListABEntries(&book, nullptr, nullptr, &(count = 1), 1),
                            IMSPListAB(&book, nullptr, &book, nullptr, 1),
                            IMSPReadPageBoundaries(&book, nullptr, &(count = 1)),
                            IMSPCreateEntry(&book, nullptr),
                            IMSPReadEntryProperties(&book, nullptr, &record),
                            IMSPReadEntryProperties(&book, &key, nullptr),
                            IMSPModifyEntry(&book, &key, nullptr),
                            IMSPDeleteEntry(&book, nullptr)};
  EXPECT_THAT(results, testing::Each(kInvalidField));
}

TEST_F(BooksTest, KeyAndItsBookComeAndGoTogether) {
  EXPECT_EQ(CreateEntry(BookKind::kTop, kTopBook, MakeItem("Scan")), kNoError);
  EXPECT_EQ(Size(BookKind::kKeyItems, "Scan"), 0);
  EXPECT_EQ(DeleteEntry(BookKind::kTop, kTopBook, "Scan"), kNoError);
  EXPECT_EQ(Size(BookKind::kKeyItems, "Scan"), -1);

  MakeKey("Scan");
  EXPECT_EQ(Delete(BookKind::kKeyItems, "Scan"), kNoError);
  EXPECT_EQ(Size(BookKind::kTop), 0);
  EXPECT_EQ(Create(BookKind::kKeyItems, "Scan"), kNoError);
  EXPECT_EQ(Size(BookKind::kTop), 1);

  MakeKey("Mail");
  EXPECT_EQ(ModifyEntry(BookKind::kTop, kTopBook, "Mail", MakeItem("Scan")), kNameConflict);
  EXPECT_EQ(ModifyEntry(BookKind::kTop, kTopBook, "Mail", MakeItem("Mail")), kNoError);
  EXPECT_EQ(ModifyEntry(BookKind::kTop, kTopBook, "Mail", MakeItem("Copy")), kNoError);
  EXPECT_EQ(Size(BookKind::kKeyItems, "Mail"), -1);
  EXPECT_EQ(Size(BookKind::kKeyItems, "Copy"), 1);

  ABIdent top(BookKind::kTop, kTopBook);
  EXPECT_EQ(IMSPClearAB(&top, "S*"), kNoError);
  EXPECT_EQ(Size(BookKind::kKeyItems, "Scan"), -1);
  EXPECT_EQ(Size(BookKind::kKeyItems, "Copy"), 1);
}

TEST_F(BooksTest, ListIsRenamedUnderTheNameOfThePrivateBook) {
  for (const BookKind kind : {BookKind::kPublicList, BookKind::kPrivateList}) {
    SCOPED_TRACE(static_cast<unsigned>(kind));
    Create(kind, "Other");
    Create(kind, "Old");
    CreateEntry(kind, "Old", MakeEmail("Ann"));
    EXPECT_EQ(ModifyEntry(kind, kPrivateBook, "None", MakeEmail("New")), kNoSuchBook);
    EXPECT_EQ(ModifyEntry(kind, kPrivateBook, "Old", MakeEmail("Other")), kDuplicateBook);
    EXPECT_EQ(ModifyEntry(kind, kPrivateBook, "Old", MakeEmail("")), kInvalidField);
    EXPECT_EQ(ModifyEntry(kind, kPrivateBook, "Old", MakeEmail("New")), kNoError);
    EXPECT_EQ(Size(kind, "Old"), -1);
    EXPECT_EQ(Size(kind, "New"), 1);
  }
}

TEST_F(BooksTest, PrivateBooksFollowTheAccountAndThoseAsDeliveredStay) {
  CUserEntry user;
  user.SetName("Eve");
  EXPECT_EQ(CreateEntry(BookKind::kUsers, kUsersBook, user), kNoError);
  EXPECT_EQ(DeleteEntry(BookKind::kUsers, kUsersBook, "GUEST"), kAccessDenied);
  EXPECT_EQ(ModifyEntry(BookKind::kUsers, kUsersBook, "TOOLKIT", user), kNameConflict);
  const CEmailEntry entry = MakeEmail("Ann");
  SimulatorPutEntry(BookKind::kPrivateEmail, nullptr, "Eve", &entry);
  SimulatorPutEntry(BookKind::kPrivateList, "Team", "Eve", &entry);
  user.SetName("Eva");
  EXPECT_EQ(ModifyEntry(BookKind::kUsers, kUsersBook, "TOOLKIT", user), kAccessDenied);
  EXPECT_EQ(ModifyEntry(BookKind::kUsers, kUsersBook, "Eve", user), kNoError);
  EXPECT_EQ(SimulatorBookSize(BookKind::kPrivateEmail, nullptr, "Eve"), 0);
  EXPECT_EQ(SimulatorBookSize(BookKind::kPrivateEmail, nullptr, "Eva"), 1);
  EXPECT_EQ(SimulatorBookSize(BookKind::kPrivateList, "Team", "Eva"), 1);
  ABIdent users(BookKind::kUsers, kUsersBook);
  EXPECT_EQ(IMSPClearAB(&users, nullptr), kNoError);
  EXPECT_EQ(Size(BookKind::kUsers), 3);
  EXPECT_EQ(SimulatorBookSize(BookKind::kPrivateList, "Team", "Eva"), -1);
}

}  // namespace
}  // namespace quillkit
