// A scanner: its fields, the server calls of its methods and their requirements, and the effect of
// a failed call on methods that use the long time-out.

#include "appliance/scanner.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "bridge/the_agent.h"
#include "simulator/simulator.h"
#include "tests/support/appliance_fixture.h"
#include "tests/support/email_entry.h"
#include "toolkit/quillkit.h"

namespace quillkit {
namespace {

using testing::ElementsAre;
using Names = std::vector<std::string>;

constexpr std::uint32_t kLocalHost = 0x0100007F;
constexpr std::uint32_t kNowhere = 0;

const std::string kTooLong(32, 'n');

TEST(Scanner, ReturnsItsFieldsOnlyWithAnAgentAndAnAddress) {
  CScanner scanner;
  EXPECT_EQ(scanner.Init("a", &kLocalHost, "b", "c", nullptr), 0);
  EXPECT_EQ(scanner.Init("a", &kNowhere, "b", "c", &TheAgent), 0);
  EXPECT_EQ(scanner.Init("a", nullptr, "b", "c", &TheAgent), 0);
  EXPECT_EQ(scanner.Name(), "");
  EXPECT_EQ(scanner.LogCount(), 0U);
  EXPECT_EQ(scanner.LogRecordAt(0), nullptr);
  CScanner other;
  EXPECT_TRUE(scanner == other) << "the addresses are equal";
  EXPECT_EQ(scanner.Init("a", &kLocalHost, "b", "c", &TheAgent), 1);
  EXPECT_TRUE(scanner != other);
  for (const bool bound : {true, false}) {
    if (!bound) scanner.SetAddress(&kNowhere);
    std::string texts[] = {"-", "-", "-"};
    std::uint32_t address = 5;
    scanner.GetName(texts[0]);
    scanner.GetModel(texts[1]);
    scanner.GetVersion(texts[2]);
    scanner.GetAddress(&address);
    EXPECT_EQ(texts[0] + texts[1] + texts[2], bound ? "abc" : "---");
    EXPECT_EQ(address, bound ? kLocalHost : 5);
    EXPECT_EQ(scanner.Agent(), bound ? &TheAgent : nullptr);
    EXPECT_EQ(scanner.ClearEmailBook(), bound ? kNotInitialised : kNoError);
    EXPECT_EQ(scanner.Name() + scanner.Model() + scanner.Version(), "abc");
  }
}

// --- Calls ---

struct Arguments {
  KeyRange range{"Ann", "A*"};
  CEmailEntry email = MakeEntry("Ann");
  CFaxEntry fax;
  CUserEntry user;
  PrinterRecord printer;
  CMenuItem item;
  EntryKey row;
  ABIdent list;
  PageBoundary boundary;
  IOCtlRecord control;
  std::uint32_t number = 1;
  std::string text;
  std::uint32_t* count = &number;
  bool hasBuffer = true;

  template <class Record>
  Record* Buffer(Record& record) {
    return hasBuffer ? &record : nullptr;
  }
};

// What a method needs for its call besides an agent, in the order of the names: nothing; an address
// of the scanner; a count; a count other than 0; a count other than 0 and a buffer.
enum class Needs { kAgent, kAddress, kCount, kCapacity, kBuffer };
using enum Needs;

struct Method {
  Needs needs;
  const char* call;  // as in the journal; the first one if there are several
  Status (*run)(CScanner&, Arguments&);
};

#define CALL(expression) \
  [](CScanner& on, [[maybe_unused]] Arguments& a) -> Status { return on.expression; }

// Every operation on books, and every book in at least one of them.
const Method kMethods[] = {
    {kAgent, "IMSPCreateEntry 16:PRIVATEAB Ann", CALL(PrivateEntries().Create(a.Buffer(a.email)))},
    {kAgent, "IMSPReadEntryProperties 2:FAXAB \"\"", CALL(FaxEntries().ReadOne(a.Buffer(a.fax)))},
    {kAgent, "IMSPModifyEntry 4:USERSAB \"\" \"\"", CALL(UserEntries().Modify(&a.user))},
    {kAgent, "IMSPModifyEntry 8:PRINTERSAB Old \"\"",
     CALL(PrinterEntries().Rename("Old", &a.printer))},
    {kAgent, "IMSPDeleteEntry 16:PRIVATEAB Ann", CALL(PrivateEntries().Delete(a.email))},
    {kAgent, "IMSPDeleteEntry 1:EMAILAB Old", CALL(EmailEntries().Delete("Old"))},
    {kAgent, "IMSPReadEntryProperties 4:USERSAB ADMINISTRATOR", CALL(ReadAdminTag(a.count))},
    {kAgent, "IMSPIOCtl 2 0", CALL(ServerCall(&a.control))},
    {kAgent, "IMSPCreateEntry 256:TOPAB \"\"", CALL(CreateKeyEntry(&a.item))},
    {kAgent, "IMSPModifyEntry 256:TOPAB Old \"\"", CALL(ModifyKeyEntry("Old", &a.item))},
    {kAgent, "IMSPModifyEntry 512:Scan Old \"\"", CALL(RenameKeyItem("Scan", "Old", &a.item))},
    {kAgent, "IMSPDeleteEntry 512:Scan \"\"", CALL(DeleteKeyItem("Scan", a.item))},
    {kAgent, "IMSPCreateAB 64:Team", CALL(PublicList("Team").CreateBook())},
    {kAgent, "IMSPDeleteAB 128:Team", CALL(PrivateList("Team").DeleteBook())},
    {kAgent, "IMSPModifyEntry 64:Team Ann Ann",
     CALL(PublicList("Team").ModifyEach(&a.email, a.count))},
    {kAgent, "IMSPModifyEntry 64:PRIVATEAB Old New", CALL(RenamePublicList("Old", "New"))},
    {kAgent, "IMSPModifyEntry 128:PRIVATEAB Old New", CALL(RenamePrivateList("Old", "New"))},
    {kAgent, "IMSPSizeofAB 1024:LOGAB Ann", CALL(ReadLog("Ann"))},
    {kAgent, "IMSPIOCtl 2 0", CALL(ClearLog("Ann"))},
    {kAgent, "IMSPIOCtl 2 0", CALL(ClearLogExceptSystem())},
    {kAgent, "IMSPIOCtl 2 0", CALL(SetServerTimeout(1, a.count))},
    {kAgent, "IMSPLogin 127.0.0.1 GUEST \"\"", CALL(EnrolUser(&a.user))},
    // Truncated, the name could be that of another key, list or entry.
    {kAgent, "IMSPDeleteAB 512:", CALL(DeleteKeyBook(kTooLong))},
    {kAgent, "IMSPDeleteEntry 2048:MODELAB \"\"", CALL(ModelEntries().Delete(kTooLong))},
    {kAgent, "IMSPModifyEntry 256:TOPAB \"\" \"\"", CALL(ModifyKeyEntry(kTooLong, &a.item))},
    {kAgent, "IMSPModifyEntry 64:PRIVATEAB Old \"\"", CALL(RenamePublicList("Old", kTooLong))},
    {kAddress, "IMSPSizeofAB 1:EMAILAB -", CALL(SizeofEmail(a.count))},
    {kAddress, "IMSPSizeofAB 2:FAXAB -", CALL(SizeofFax(a.count))},
    {kAddress, "IMSPSizeofAB 4:USERSAB -", CALL(SizeofUsers(a.count))},
    {kAddress, "IMSPSizeofAB 8:PRINTERSAB -", CALL(SizeofPrinters(a.count))},
    {kAddress, "IMSPSizeofAB 256:TOPAB -", CALL(SizeofTop(a.count))},
    {kAddress, "IMSPSizeofAB 512:Scan -", CALL(SizeofKey("Scan", a.count))},
    {kAddress, "IMSPSizeofAB 64:Team -", CALL(SizeofPublicList("Team", a.count))},
    {kAddress, "IMSPSizeofAB 128:Team -", CALL(SizeofPrivateList("Team", a.count))},
    {kAddress, "IMSPSizeofAB 768:Team -", CALL(SizeofFaxList("Team", a.count))},
    {kAddress, "IMSPListAB 64: - - 1", CALL(CountPublicLists(a.count))},
    {kAddress, "IMSPListAB 768: - - 1", CALL(CountFaxLists(a.count))},
    {kAddress, "IMSPIOCtl 2 0", CALL(BackupDatabase("a", "b"))},
    {kAddress, "IMSPIOCtl 2 0", CALL(RestoreDatabase("a", "b"))},
    {kAddress, "IMSPIOCtl 2 0", CALL(RunBatch("path"))},
    {kAddress, "IMSPLogin 127.0.0.1 TOOLKIT ***", CALL(ProbeIdentity(a.text))},
    {kCount, "IMSPReadAB 768:Team - 1 1", CALL(FaxList("Team").ReadAll(a.Buffer(a.fax), a.count))},
    {kCapacity, "IMSPListABEntries 8:PRINTERSAB [|*|0] 1 1",
     CALL(PrinterEntries().ListNames(a.Buffer(a.row), a.count))},
    {kCapacity, "IMSPListABEntries 256: [|*|0] 1 1", CALL(ListKeys(a.Buffer(a.row), a.count))},
    {kCapacity, "IMSPListAB 64: [|*|0] 1 1", CALL(ListPublicLists(a.Buffer(a.list), a.count))},
    {kCapacity, "IMSPListAB 128: [|*|0] 1 1", CALL(ListPrivateLists(a.Buffer(a.list), a.count))},
    {kCapacity, "IMSPListAB 768: [|*|0] 1 1", CALL(ListFaxLists(a.Buffer(a.list), a.count))},
    {kBuffer, "IMSPReadAB 1:EMAILAB [Ann|A*|0] 1 0",
     CALL(EmailEntries().Read(&a.range, a.Buffer(a.email), a.count, 0))},
    {kBuffer, "IMSPReadAB 512:Scan [Ann|A*|0] 1 0",
     CALL(ReadUnterminatedItems("Scan", &a.range, a.Buffer(a.item), a.count, 0))},
    {kBuffer, "IMSPListABEntries 1:EMAILAB [Ann|A*|0] 1 1",
     CALL(EmailEntries().List(&a.range, a.Buffer(a.row), a.count, 1))},
    {kBuffer, "IMSPReadPageBoundaries 1:EMAILAB 1",
     CALL(ReadPageBoundaries(a.Buffer(a.boundary), a.count))},
    {kAgent, "IMSPReadAB 128:Team - 0 1",
     CALL(PrivateList("Team").ReadAll(a.Buffer(a.email), &(a.number = 0)))},
};

using ScannerCall = ApplianceTest;

TEST_F(ScannerCall, IsNotMadeWithoutAnAgentAnAddressOrARequiredArgument) {
  LogIn();
  SimulatorSetDefects(kDefectFailedCount);
  SimulatorFail(nullptr, 0, kFault);
  for (const Method& method : kMethods) {
    CScanner scanner;
    const auto expect = [&](const char* missing, bool calls, void (*remove)(Arguments&)) {
      SCOPED_TRACE(std::string(method.call) + " without " + missing);
      Arguments arguments;
      remove(arguments);
      TheAgent.SetError(kEarlier);
      EXPECT_EQ(method.run(scanner, arguments), calls ? kFault : kRefused);
      EXPECT_EQ(TheAgent.LastError(), calls ? kFault : kEarlier);
      const Names made = TakeCalls();
      EXPECT_EQ(made.size(), calls ? 1U : 0U);
      return made;
    };
    const auto nothing = [](Arguments&) {};
    scanner.SetAddress(&kLocalHost);
    const auto noBuffer = [](Arguments& a) { a.hasBuffer = false; };
    expect("an agent", false, noBuffer);  // which would also be needed with an agent
    scanner.SetAgent(&TheAgent);
    if (method.needs >= kCount) expect("a buffer", method.needs != kBuffer, noBuffer);
    EXPECT_EQ(expect("any omission", true, nothing), Names{method.call});
    if (method.needs >= kCount) expect("a count", false, [](Arguments& a) { a.count = nullptr; });
    if (method.needs >= kCapacity) expect("a capacity", false, [](Arguments& a) { a.number = 0; });
    scanner.SetAddress(&kNowhere);
    expect("an address", method.needs != kAddress, nothing);
  }
}

// --- The long time-out ---

constexpr std::uint32_t kOld = 1999;       // milliseconds
constexpr std::uint32_t kRestored = 1000;  // whole seconds are kept
constexpr std::uint32_t kLong = 3'600'000;

struct Outcome {
  std::size_t calls;  // including the one that fails
  Status status;
  std::uint32_t timeout;
};

// The outcomes of a failure of the first call, the second and so on; the last one, of none.
using Outcomes = std::vector<Outcome>;

constexpr Status kFault = ApplianceTest::kFault;

// The first failure ends the operation.
const Outcomes kStops = {{1, kFault, kOld},  {2, kFault, kOld},  {3, kFault, kLong},
                         {4, kFault, kLong}, {5, kFault, kLong}, {5, kNoError, kRestored}};

// The work is done in every case, and the status is that of the work. If the old time-out cannot be
// read, the long one is not set. It stays set only if one of the two calls after the work fails.
const Outcomes kRestores = {{4, kNoError, kRestored}, {5, kNoError, kRestored},
                            {5, kFault, kRestored},   {4, kNoError, kLong},
                            {5, kNoError, kLong},     {5, kNoError, kRestored}};

const struct {
  const char* work;  // the third of the five calls
  const Outcomes& outcomes;
  Status (*run)(CScanner&, Arguments&);
} kOperations[] = {
    {"IMSPBatchConfiguration a/script", kStops, CALL(RunBatch("a/script"))},
    {"IMSPIOCtl 7 0 DBBACKUP......one,two", kStops, CALL(BackupDatabase("one", "two"))},
    {"IMSPIOCtl 7 0 DBRESTORE.....one,", kStops, CALL(RestoreDatabase("one", nullptr))},
    {"IMSPClearAB 1024:LOGAB Ann", kStops, CALL(ClearLog("Ann"))},
    {"IMSPClearAB 1024:LOGAB _!ADMINISTRATOR_!GUEST", kStops, CALL(ClearLogExceptSystem())},
    {"IMSPIOCtl 7 0 DBCHECK.......", kRestores, CALL(Agent()->CheckDatabase())},
    {"IMSPClearAB 1:EMAILAB -", kRestores, CALL(ClearEmailBook())},
    {"IMSPClearAB 2:FAXAB -", kRestores, CALL(ClearFaxBook())},
    {"IMSPClearAB 4:USERSAB -", kRestores, CALL(ClearUsersBook())},
    {"IMSPClearAB 8:PRINTERSAB -", kRestores, CALL(ClearPrintersBook())},
    {"IMSPClearAB 256:TOPAB -", kRestores, CALL(ClearTopBook())},
};

TEST_F(ScannerCall, FailureHasTheListedEffectOnALongOperation) {
  CScanner* const box = LogIn();
  Arguments arguments;
  TheAgent.BackupDatabase("one", nullptr);
  for (const auto& each : kOperations) {
    for (std::size_t failing = 0; failing < each.outcomes.size(); ++failing) {
      SCOPED_TRACE(testing::Message()
                   << each.work << ", call " << failing + 1 << " fails, if there is one");
      const Outcome& expected = each.outcomes[failing];
      SimulatorSetTimeout(kOld);
      SimulatorClearFaults();
      SimulatorClearJournal();
      SimulatorFail(nullptr, static_cast<std::int32_t>(failing) + 1, kFault);
      SimulatorFail("IMSPBatchConfiguration", 1, kNoError);  // the script need not exist
      EXPECT_EQ(each.run(*box, arguments), expected.status);
      EXPECT_EQ(SimulatorTimeout(), expected.timeout);
      const Names calls = TakeCalls();
      EXPECT_EQ(calls.size(), expected.calls);
      if (failing < 5) continue;
      EXPECT_EQ(TheAgent.LastError(), kNoError);
      EXPECT_THAT(calls, ElementsAre("IMSPIOCtl 2 0", "IMSPIOCtl 1 3600000", each.work,
                                     "IMSPIOCtl 2 0", "IMSPIOCtl 1 1000"));
    }
  }
}

// --- Records of a call ---

TEST_F(ScannerCall, OnlyTheAdministratorWritesTheTag) {
  CScanner* box = LogIn();
  const std::uint32_t tag = 77;
  const std::string read = "IMSPReadEntryProperties 4:USERSAB ADMINISTRATOR";
  EXPECT_EQ(box->WriteAdminTag(&tag), kNoError);
  EXPECT_THAT(TakeCalls(),
              ElementsAre(read, "IMSPModifyEntry 4:USERSAB ADMINISTRATOR ADMINISTRATOR"));
  CUserEntry stored;
  SimulatorFindEntry(BookKind::kUsers, "", nullptr, "ADMINISTRATOR", &stored);
  EXPECT_EQ(stored.password.View(), kPassword) << "the other fields must not change";
  std::uint32_t found = 0;
  EXPECT_EQ(box->ReadAdminTag(&found), kNoError);
  SimulatorFail("IMSPReadEntryProperties", 0, kFault);
  EXPECT_EQ(box->ReadAdminTag(&found), kFault);
  EXPECT_EQ(found, 77U);
  TakeCalls();
  EXPECT_EQ(box->WriteAdminTag(&tag), kFault);
  EXPECT_THAT(TakeCalls(), ElementsAre(read));

  SimulatorClearFaults();
  box = LogToQuillbox(kHost, "TOOLKIT", "KELP", "", 0);
  TakeCalls();
  EXPECT_EQ(box->WriteAdminTag(&tag), kRefused);
  TheAgent.Logout(0);
  EXPECT_EQ(box->WriteAdminTag(&tag), kRefused);
  EXPECT_EQ(CScanner().WriteAdminTag(&tag), kRefused);
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPLogout"));
}

TEST_F(ScannerCall, ModifyEachStopsAtTheFirstFailure) {
  CScanner* const box = LogIn();
  CEmailEntry members[] = {MakeEntry("A"), MakeEntry("B"), MakeEntry("C")};
  const std::uint32_t count = 3;
  SimulatorSetDefects(kDefectScribble);  // the server overwrites the book of each call
  SimulatorFail("IMSPModifyEntry", 1, kNoError);
  SimulatorFail("IMSPModifyEntry", 2, kFault);
  EXPECT_EQ(box->PublicList("Team").ModifyEach(members, &count), kFault);
  EXPECT_THAT(TakeCalls(),
              ElementsAre("IMSPModifyEntry 64:Team A A", "IMSPModifyEntry 64:Team B B"));
}

TEST_F(ScannerCall, TerminatesDeliveredTexts) {
  SimulatorSeed();
  CScanner* const box = LogIn();
  SimulatorSetDefects(kDefectUnterminated);
  KeyRange all;
  CFaxEntry fax[5];
  std::uint32_t count = 5;
  EXPECT_EQ(box->FaxEntries().Read(&all, fax, &count, 0), kMoreData);
  for (const CFaxEntry& each : fax) EXPECT_TRUE(each.IsValid());
  ABIdent lists[3];
  count = 3;
  EXPECT_EQ(box->ListPublicLists(lists, &count), kNoError);
  for (const ABIdent& each : lists) EXPECT_TRUE(each.name.IsTerminated());
  PrinterModelRecord model;
  model.modelName.Assign("Laserette 9");
  EXPECT_EQ(box->ModelEntries().ReadOne(&model), kNoError);
  EXPECT_TRUE(model.IsValid());
}

}  // namespace
}  // namespace quillkit
