// Rules that all books and lists share: their limits, and local changes of entries that are not in
// memory.

#include <functional>

#include "tests/books/books_fixture.h"

namespace quillkit {
namespace {

using testing::Contains;
using testing::StartsWith;

// The objects of the rows. Team is also the name of a list on the appliance.
class SharedRuleTest : public BooksTest {
 public:
  SharedRuleTest() {
    faxZoe.SetName("Zoe");
    Name(userZoe, "Zoe");
    publicZoe.SetName("Zoe");
    privateZoe.SetName("Zoe");
  }

  CEmailEntry zoe = MakeEntry("Zoe");
  CFaxEntry faxZoe;
  CUserRecord userZoe;
  CPubEmailDL publicZoe, publicTeam;
  CPrivEmailDL privateZoe, privateTeam;
};

using Run = std::function<std::int64_t(SharedRuleTest&)>;

struct Operation {
  Operation(const char* newText, Run newRun) : text(newText), run(std::move(newRun)) {}

  const char* text;
  Run run;
};

// An operation of the rows. Its objects are members of `on`.
#define RUN(expression) \
  Operation(#expression, [](SharedRuleTest& on) -> std::int64_t { return on.expression; })

struct Limit {
  const char* name;
  BookKind kind;
  const char* book;  // null: the limit is that of the number of lists
  std::int32_t most;
  std::int64_t loaded;    // the result of loading no more than that
  std::int64_t tooMany;   // the result of loading one more
  std::int32_t leftThen;  // the number in memory after that
  Operation load;
  Operation count;
};

// All additions of a limit add Zoe: the first one succeeds, and the server refuses the others.
struct Addition {
  const char* limit;
  std::int64_t refusal;
  bool isRecorded;  // whether the refusal is the last error
  Operation addition;
};

const Limit kLimits[] = {
    {"FaxEntries", BookKind::kFax, "", 2048, 1, 0, 2048, RUN(fax.LoadEntries()),
     RUN(fax.EntryCount())},
    {"Accounts", BookKind::kUsers, "", 4096, 1, 0, 0, RUN(users.Load()), RUN(users.Count())},
    {"PrivateEntries", BookKind::kPrivateEmail, "", 2000, 1, 0, 0, RUN(Private().LoadEntries(0)),
     RUN(Private().EntryCount())},
    {"PublicMembers", BookKind::kPublicList, "Team", 512, 0, 21, 512,
     RUN(publicTeam.Open(&on.email, "Team")), RUN(publicTeam.Count())},
    {"PrivateMembers", BookKind::kPrivateList, "Team", 512, 0, 21, 512,
     RUN(privateTeam.Open(&on.Private(), "Team")), RUN(privateTeam.Count())},
    {"PublicLists", BookKind::kPublicList, nullptr, 512, 0, 21, 512, RUN(email.LoadLists(0)),
     RUN(email.ListCount())},
    {"PrivateLists", BookKind::kPrivateList, nullptr, 100, 0, 21, 100, RUN(Private().LoadLists(0)),
     RUN(Private().ListCount())},
};

const Addition kAdditions[] = {
    {"FaxEntries", 0, true, RUN(fax.AddEntry(&on.faxZoe, 0))},
    {"FaxEntries", -1, true, RUN(fax.FastAddEntry(&on.faxZoe))},
    {"Accounts", 0, true, RUN(users.AddUser(&on.userZoe, 0))},
    {"Accounts", -1, true, RUN(users.AddLocal(&on.userZoe))},
    {"PrivateEntries", 24, false, RUN(Private().AddMember("Team", &on.zoe))},
    {"PrivateEntries", 24, false, RUN(Private().AddEntry(&on.zoe))},
    {"PrivateEntries", 24, false, RUN(Private().Add(&on.zoe, 0))},
    {"PrivateEntries", 24, false, RUN(Private().AddLocal(&on.zoe))},
    {"PublicMembers", 24, true, RUN(publicTeam.AddMember(&on.zoe, 0))},
    {"PublicMembers", -1, true, RUN(publicTeam.AddLocal(&on.zoe))},
    {"PrivateMembers", 24, false, RUN(privateTeam.AddMember(&on.zoe, 0))},
    {"PrivateMembers", -1, true, RUN(privateTeam.AddLocal(&on.zoe))},
    {"PrivateMembers", -1, true, RUN(privateTeam.AddLocalUnlimited(&on.zoe))},
    {"PrivateMembers", -1, true, RUN(privateTeam.AddLocalChecked(&on.zoe))},
    {"PublicLists", 0, true, RUN(email.AddListReload(on.publicZoe, 0))},
    {"PrivateLists", 24, false, RUN(Private().CreateServerList("Zoe"))},
    {"PrivateLists", 0, true, RUN(Private().AddList(&on.privateZoe, 0))},
    {"PrivateLists", -1, true, RUN(Private().AddListLocal(&on.privateZoe))},
};

class LimitTest : public SharedRuleTest, public testing::WithParamInterface<Limit> {
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
  for (const bool isFull : {false, true}) {
    EXPECT_EQ(limit.load.run(*this), limit.loaded);
    EXPECT_EQ(limit.count.run(*this), isFull ? limit.most : limit.most - 1);
    for (const Addition& each : kAdditions) {
      if (each.limit != std::string_view(limit.name)) continue;
      SCOPED_TRACE(each.addition.text);
      Start();
      const std::int64_t result = each.addition.run(*this);
      EXPECT_THAT(TakeCalls(), Contains(StartsWith("IMSPCreate")).Times(isFull ? 0 : 1));
      if (!isFull) continue;
      EXPECT_EQ(result, each.refusal);
      EXPECT_EQ(TheAgent.LastError() == kBookFull, each.isRecorded);
    }
  }
  PutOne(limit.most);
  EXPECT_EQ(limit.load.run(*this), limit.tooMany);
  EXPECT_EQ(limit.count.run(*this), limit.leftThen);
}

INSTANTIATE_TEST_SUITE_P(Books, LimitTest, testing::ValuesIn(kLimits),
                         [](const auto& each) { return std::string(each.param.name); });

const struct {
  std::int64_t result;
  Operation change;
} kLocalChanges[] = {
    {0, RUN(fax.FastModifyEntry(&on.faxZoe))},
    {0, RUN(fax.FastRenameEntry("Zoe", &on.faxZoe))},
    {-1, RUN(fax.FastDeleteEntry(&on.faxZoe))},
    {0, RUN(users.ModifyLocal(&on.userZoe))},
    {0, RUN(users.RenameLocal("Zoe", &on.userZoe))},
    {-1, RUN(users.DeleteLocal(&on.userZoe))},
    {0, RUN(Private().ModifyLocal(&on.zoe))},
    {0, RUN(Private().ModifyLocalByKey("Zoe", &on.zoe))},
    {-1, RUN(Private().RemoveLocal(&on.zoe))},
    {-1, RUN(publicTeam.ModifyLocal(&on.zoe))},
    {-1, RUN(publicTeam.RenameLocal("Zoe", &on.zoe))},
    {-1, RUN(publicTeam.RemoveLocal(&on.zoe))},
    {0, RUN(privateTeam.ModifyLocal(&on.zoe))},
    {0, RUN(privateTeam.RenameLocal("Zoe", &on.zoe))},
    {0, RUN(email.DeleteList("Zoe"))},
};

TEST_F(SharedRuleTest, ALocalChangeFailsIfOnlyTheServerHasTheEntry) {
  const auto putEverywhere = [](std::string_view name) {
    for (const BookKind kind : {BookKind::kFax, BookKind::kUsers, BookKind::kPrivateEmail,
                                BookKind::kPublicList, BookKind::kPrivateList}) {
      PutNames(kind, "Team", {name});
    }
  };
  putEverywhere("Ann");
  fax.LoadEntries();
  users.Load();
  Private().LoadEntries(0);
  publicTeam.Open(&email, "Team");
  privateTeam.Open(&Private(), "Team");
  PutNames(BookKind::kPublicList, "Zoe", {"Ann"});
  for (const auto& each : kLocalChanges) {
    SCOPED_TRACE(each.change.text);
    putEverywhere("Zoe");
    TakeCalls();
    EXPECT_EQ(each.change.run(*this), each.result);
    EXPECT_EQ(SimulatorCallCount(), 1);
    EXPECT_EQ(SimulatorCallStatus(0), kNoError) << "the server makes the change";
  }
}

}  // namespace
}  // namespace quillkit
