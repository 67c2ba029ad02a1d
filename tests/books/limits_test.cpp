// The limits of the books, the lists, the panel and its keys.

#include <ostream>

#include "softkeys/top_level_ab.h"
#include "tests/books/books_fixture.h"
#include "tests/support/failure_sweep.h"

namespace quillkit {
namespace {

using testing::Contains;
using testing::StartsWith;

// Loads and counts the records of one kind. The load succeeds up to the limit, and fails with code
// 21 if the server has more.
struct Limit {
  const char* name;
  BookKind kind;
  const char* book;  // null: the limit is that of the number of lists
  std::int32_t most;
  std::int32_t countAfterFailure;  // the number in memory after the failed load
  Operation load;
  Operation count;
};

std::ostream& operator<<(std::ostream& out, const Limit& each) {
  return out << each.name;
}

// At the limit, an addition fails with code 24 and makes no create call. Below it, all additions of
// a limit add the same name: the first one succeeds, and the server refuses the others.
struct Addition {
  const char* limit;
  bool isRecorded;  // whether code 24 is the last error
  Operation addition;
};

const Limit kLimits[] = {
    {"FaxEntries", BookKind::kFax, "", 2048, 2048, CALL(on.fax.LoadEntries(), kFlag, ""),
     CALL(on.fax.EntryCount(), kNothing, "")},
    {"Accounts", BookKind::kUsers, "", 4096, 0, CALL(on.users.Load(), kFlag, ""),
     CALL(on.users.Count(), kNothing, "")},
    {"PrivateEntries", BookKind::kPrivateEmail, "", 2000, 0,
     CALL(on.priv->LoadEntries(0), kFlag, ""), CALL(on.priv->EntryCount(), kNothing, "")},
    {"PublicMembers", BookKind::kPublicList, "Team", 512, 512,
     CALL(on.choir->Open(&on.email, "Team"), kStatus, ""), CALL(on.choir->Count(), kNothing, "")},
    {"PrivateMembers", BookKind::kPrivateList, "Team", 512, 512,
     CALL(on.privChoir->Open(on.priv, "Team"), kStatus, ""),
     CALL(on.privChoir->Count(), kNothing, "")},
    {"PublicLists", BookKind::kPublicList, nullptr, 512, 512,
     CALL(on.email.LoadLists(0), kStatus, ""), CALL(on.email.ListCount(), kNothing, "")},
    {"PrivateLists", BookKind::kPrivateList, nullptr, 100, 100,
     CALL(on.priv->LoadLists(0), kStatus, ""), CALL(on.priv->ListCount(), kNothing, "")},
    {"Printers", BookKind::kPrinters, "", 256, 256, CALL(on.printers.LoadPrinters() > 0, kFlag, ""),
     CALL(on.printers.PrinterCount(), kNothing, "")},
    {"Models", BookKind::kModels, "", 16, 0, CALL(on.printers.LoadModels() > 0, kFlag, ""),
     CALL(on.printers.ModelCount(), kNothing, "")},
    {"Keys", BookKind::kTop, "", 11, 0, CALL(on.book->Load(0), kStatus, ""),
     CALL(on.book->Count(), kNothing, "")},
    {"Items", BookKind::kKeyItems, "Copy", 512, 512,
     CALL(on.newKey->Load("Copy", on.book, {}, 1), kStatus, ""),
     CALL(on.newKey->ItemCount(), kNothing, "")},
};

const Addition kAdditions[] = {
    {"FaxEntries", true, CALL(on.fax.AddEntry(&on.faxZoe, 0), kFlag, "CreateEntry")},
    {"FaxEntries", true, CALL(on.fax.FastAddEntry(&on.faxZoe), Count(1), "CreateEntry")},
    {"Accounts", true, CALL(on.users.AddUser(&on.newUser, 0), kFlag, "CreateEntry")},
    {"Accounts", true, CALL(on.users.AddLocal(&on.newUser), Count(1), "CreateEntry")},
    {"PrivateEntries", false, CALL(on.priv->AddMember("Team", &on.zoe), kStatus, "CreateEntry")},
    {"PrivateEntries", false, CALL(on.priv->AddEntry(&on.zoe), kStatus, "CreateEntry")},
    {"PrivateEntries", false, CALL(on.priv->Add(&on.zoe, 0), kStatus, "CreateEntry")},
    {"PrivateEntries", false, CALL(on.priv->AddLocal(&on.zoe), kStatus, "CreateEntry")},
    {"PublicMembers", true, CALL(on.choir->AddMember(&on.zoe, 0), kStatus, "CreateEntry")},
    {"PublicMembers", true, CALL(on.choir->AddLocal(&on.zoe), Count(1), "CreateEntry")},
    {"PrivateMembers", false, CALL(on.privChoir->AddMember(&on.zoe, 0), kStatus, "CreateEntry")},
    {"PrivateMembers", true, CALL(on.privChoir->AddLocal(&on.zoe), Count(1), "CreateEntry")},
    {"PrivateMembers", true,
     CALL(on.privChoir->AddLocalUnlimited(&on.zoe), Count(1), "CreateEntry")},
    {"PrivateMembers", true, CALL(on.privChoir->AddLocalChecked(&on.zoe), Count(1), "CreateEntry")},
    {"PublicLists", true, CALL(on.email.AddListReload(*on.choir, 0), kFlag, "CreateAB")},
    {"PrivateLists", false, CALL(on.priv->CreateServerList("Choir"), kStatus, "CreateAB")},
    {"PrivateLists", true, CALL(on.priv->AddList(on.privChoir.get(), 0), kFlag, "CreateAB")},
    {"PrivateLists", true, CALL(on.priv->AddListLocal(on.privChoir.get()), Count(1), "CreateAB")},
    {"Printers", true,
     CALL(on.printers.AddPrinter(&on.printerZoe, false), Count(1), "CreateEntry")},
    {"Printers", true, CALL(on.printers.FastAddPrinter(&on.printerZoe), Count(1), "CreateEntry")},
    {"Models", true, CALL(on.printers.AddModel(&on.newModel, false), Count(1), "CreateEntry")},
    {"Keys", false, CALL(on.book->AddKey("Copy", false), kStatus, "CreateEntry")},
    {"Keys", false, CALL(on.book->FastKeyAdd(*on.newKey), Count(1), "CreateEntry")},
    {"Items", true, CALL(on.newKey->FastItemAdd(&on.newItem), Count(1), "CreateEntry")},
};

class LimitTest : public BooksTest, public testing::WithParamInterface<Limit> {
 public:
  static void PutOne(int number) {
    const std::string name = "n" + std::to_string(10'000 + number);
    const char* book = GetParam().book;
    PutNames(GetParam().kind, book != nullptr ? book : name, {name});
  }
};

TEST_P(LimitTest, RejectsAdditionsWithoutACreateCallAndLoadsNoMoreThanTheLimit) {
  const Limit& limit = GetParam();
  const std::int32_t first = limit.kind == BookKind::kUsers ? 3 : 0;  // the permanent accounts
  for (std::int32_t i = first; i < limit.most - 1; ++i) PutOne(i);
  Stage stage(box, true, Stage::kAsFound);
  for (const bool isFull : {false, true}) {
    EXPECT_EQ(limit.load.run(stage), limit.load.result.success);
    EXPECT_EQ(limit.count.run(stage), isFull ? limit.most : limit.most - 1);
    for (const auto& [limitName, isRecorded, addition] : kAdditions) {
      if (limitName != std::string_view(limit.name)) continue;
      SCOPED_TRACE(addition.name);
      Start();
      const std::int64_t result = addition.run(stage);
      EXPECT_THAT(TakeCalls(), Contains(StartsWith("IMSP" + addition.calls)).Times(isFull ? 0 : 1));
      if (!isFull) continue;
      EXPECT_EQ(result, addition.result.Failure(kBookFull));
      EXPECT_EQ(TheAgent.LastError() == kBookFull, isRecorded);
    }
  }
  PutOne(limit.most);
  EXPECT_EQ(limit.load.run(stage), limit.load.result.Failure(kMoreData));
  EXPECT_EQ(limit.count.run(stage), limit.countAfterFailure);
}

INSTANTIATE_TEST_SUITE_P(Books, LimitTest, testing::ValuesIn(kLimits),
                         [](const auto& each) { return std::string(each.param.name); });

}  // namespace
}  // namespace quillkit
