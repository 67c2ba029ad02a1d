// Faults, lies and the journal: what a test orders is what it gets.

#include <algorithm>

#include "simulator/status_codes.h"
#include "tests/simulator/server_fixture.h"

namespace quillkit {
namespace {

class FaultsTest : public ServerTest {
 protected:
  FaultsTest() {
    LogInAsAdministrator();
    for (const char* name : {"Ann", "Bob", "Cid"}) PutEmail(name);
  }

  struct Reply {
    Status status = kNoError;
    std::uint32_t count = 0;
    std::vector<CEmailEntry> records;
  };

  // Reads into a buffer of `capacity` records and one that must not be touched.
  static Reply Read(std::uint32_t capacity, const char* filter = "") {
    ABIdent book(BookKind::kEmail, kEmailBook);
    KeyRange range("", filter);
    Reply reply{0, capacity, std::vector<CEmailEntry>(capacity + 1)};
    reply.status = IMSPReadAB(&book, &range, reply.records.data(), &reply.count, 1);
    EXPECT_TRUE(reply.records.back().IsBlank());
    return reply;
  }

  static std::uint32_t Size() {
    ABIdent book(BookKind::kEmail, kEmailBook);
    std::uint32_t count = 0;
    IMSPSizeofAB(&book, nullptr, &count);
    return count;
  }

  ABIdent book{BookKind::kEmail, kEmailBook};
};

TEST_F(FaultsTest, FaultWaitsForItsTurn) {
  SimulatorFail("IMSPAbort", 3, kBadCommand);
  SimulatorFail("IMSPWakeup", 1, kBookFull);
  EXPECT_EQ(IMSPAbort(), kNoError);
  EXPECT_EQ(IMSPWakeup(), kBookFull);
  EXPECT_EQ(IMSPAbort(), kNoError);
  EXPECT_EQ(IMSPAbort(), kBadCommand);
  EXPECT_EQ(IMSPAbort(), kNoError);
}

TEST_F(FaultsTest, FaultsMeetAndRepeat) {
  SimulatorFail(nullptr, 2, 101);
  SimulatorFail("IMSPAbort", 2, 102);
  SimulatorFail("IMSPWakeup", 0, 103);
  EXPECT_EQ(IMSPAbort(), kNoError);
  EXPECT_EQ(IMSPAbort(), 101);
  EXPECT_EQ(IMSPAbort(), kNoError) << "the fault that lost is used up";
  EXPECT_EQ(IMSPWakeup(), 103);
  EXPECT_EQ(IMSPWakeup(), 103);
  SimulatorClearFaults();
  EXPECT_EQ(IMSPWakeup(), kNoError);
}

TEST_F(FaultsTest, FaultedCallDoesNothing) {
  SimulatorFail("IMSPClearAB", 1, kNoError);
  EXPECT_EQ(IMSPClearAB(&book, nullptr), kNoError);
  EXPECT_EQ(Size(), 3U);
  SimulatorFail("IMSPReadAB", 1, kMoreData);
  const Reply reply = Read(2);
  EXPECT_EQ(reply.status, kMoreData);
  EXPECT_EQ(reply.count, 0U);
  EXPECT_TRUE(reply.records[0].IsBlank());
}

TEST_F(FaultsTest, InitialisationCanFail) {
  IMSPTerminate();
  SimulatorFail("IMSPInit", 1, 18);
  EXPECT_EQ(IMSPInit(), 18);
  EXPECT_EQ(IMSPWakeup(), kNotInitialised);
  EXPECT_EQ(IMSPInit(), kNoError);
}

TEST_F(FaultsTest, DeliveredCountLies) {
  SimulatorSetLies(kLieDeliveredCount);
  EXPECT_EQ(Read(5).count, 1005U);
  EXPECT_EQ(Read(5).records[2].name, "Cid");
  EXPECT_EQ(Read(2).count, 1002U);
  EXPECT_EQ(Read(5, "Z*").count, 0U);
  EntryKey rows[4];
  std::uint32_t count = 4;
  EXPECT_EQ(IMSPListABEntries(&book, nullptr, rows, &count, 1), kNoError);
  EXPECT_EQ(count, 1004U);
  PageBoundary table[4];
  count = 4;
  EXPECT_EQ(IMSPReadPageBoundaries(&book, table, &count), kNoError);
  EXPECT_EQ(count, 1004U);
}

TEST_F(FaultsTest, UnterminatedLies) {
  SimulatorSetLies(kLieUnterminated);
  const Reply reply = Read(3);
  EXPECT_EQ(reply.records[1].name, "Bob" + std::string(29, '~'));
  EXPECT_FALSE(reply.records[1].address.IsTerminated());
  CEmailEntry entry;
  EntryKey key("Ann");
  EXPECT_EQ(IMSPReadEntryProperties(&book, &key, &entry), kNoError);
  EXPECT_FALSE(entry.name.IsTerminated());
  EntryKey row;
  std::uint32_t count = 1;
  EXPECT_EQ(IMSPListABEntries(&book, nullptr, &row, &count, 1), kMoreData);
  EXPECT_FALSE(row.name.IsTerminated());
  EXPECT_EQ(SimulatorFindEntry(BookKind::kEmail, nullptr, nullptr, "Bob", &entry), 1);
  EXPECT_TRUE(entry.IsValid()) << "what is stored stays true";
}

TEST_F(FaultsTest, FailedCountLies) {
  ABIdent missing(BookKind::kPublicList, "None");
  std::uint32_t count = 7;
  EXPECT_EQ(IMSPSizeofAB(&missing, nullptr, &count), kNoSuchBook);
  EXPECT_EQ(count, 0U);
  SimulatorSetLies(kLieFailedCount);
  count = 7;
  EXPECT_EQ(IMSPSizeofAB(&missing, nullptr, &count), kNoSuchBook);
  EXPECT_EQ(count, 7U);
  EXPECT_EQ(Read(2, "Z*").count, 2U);
  SimulatorFail("IMSPReadAB", 1, kBookFull);
  EXPECT_EQ(Read(2).count, 2U);
  EXPECT_EQ(Read(2).count, 2U);
}

TEST_F(FaultsTest, UnsortedLies) {
  SimulatorSetLies(kLieUnsorted);
  const Reply reply = Read(2);
  EXPECT_EQ(reply.records[0].name, "Bob");
  EXPECT_EQ(reply.records[1].name, "Ann");
}

TEST_F(FaultsTest, CensusAndSizeLie) {
  PutEmail("Bea");
  SimulatorSetLies(kLieCensus | kLieSize);
  PageBoundary table[4];
  std::uint32_t count = 4;
  EXPECT_EQ(IMSPReadPageBoundaries(&book, table, &count), kNoError);
  EXPECT_EQ(count, 3U);
  EXPECT_EQ(table[0].count, 3);
  EXPECT_EQ(table[1].count, -5);
  EXPECT_EQ(table[2].count, 3);
  EXPECT_EQ(Size(), 11U);
  EXPECT_EQ(Size(), 18U);
  ABIdent selector(BookKind::kFaxList, "");
  EXPECT_EQ(IMSPListAB(&selector, nullptr, nullptr, &count, 1), kNoError);
  EXPECT_EQ(count, 21U);
  SimulatorSetLies(0);
  EXPECT_EQ(Size(), 4U);
}

TEST_F(FaultsTest, JournalShowsCallsAndArguments) {
  SimulatorRecordCalls(1);
  ABIdent top(BookKind::kTop, "");
  ABIdent key(BookKind::kKeyItems, "Scan");
  ABIdent lists(BookKind::kFaxList, "");
  KeyRange range("A", "S*", 2);
  EntryKey name("Copy");
  EntryKey none;
  CMenuItem item;
  item.SetName("Scan");
  std::uint32_t count = 11;
  EntryKey rows[11];
  char command[] = "DBCHECK.......";
  IOCtlRecord control{IOCtlCode::kDatabaseCommand, 0, command};
  LoginRecord login = MakeLogin("TOOLKIT", "KELP");
  LoginRecord guest = MakeLogin("GUEST", "");
  char reply[8];

  IMSPListABEntries(&top, &range, rows, &count, 0);
  IMSPReadAB(&key, nullptr, nullptr, nullptr, 1);
  IMSPListAB(&lists, nullptr, nullptr, &count, 1);
  IMSPReadPageBoundaries(&book, nullptr, &(count = 0));
  IMSPSizeofAB(&book, "", &count);
  IMSPClearAB(&book, nullptr);
  IMSPCreateEntry(&top, &item);
  IMSPModifyEntry(&top, &name, &item);
  IMSPReadEntryProperties(&key, &name, &item);
  IMSPDeleteEntry(&key, &none);
  IMSPDeleteAB(nullptr);
  IMSPIOCtl(&control);
  control = {IOCtlCode::kSetTimeout, 3600000, nullptr};
  IMSPIOCtl(&control);
  IMSPCheckString("a b", 7);
  IMSPImport(1, 2, 4'000'000'000);
  IMSPLogin(&login, reply, sizeof reply);
  IMSPLogin(&guest, reply, sizeof reply);
  IMSPLogout();
  SimulatorFail("IMSPWakeup", 1, kBookFull);
  IMSPWakeup();
  SimulatorRecordCalls(0);
  IMSPWakeup();

  const std::pair<const char*, Status> expected[] = {
      {"IMSPListABEntries 256: [A|S*|2] 11 0", kDataNotFound},
      {"IMSPReadAB 512:Scan - - 1", kInvalidField},
      {"IMSPListAB 768: - - 1", kNoError},
      {"IMSPReadPageBoundaries 1:EMAILAB 0", kMoreData},
      {"IMSPSizeofAB 1:EMAILAB \"\"", kNoError},
      {"IMSPClearAB 1:EMAILAB -", kNoError},
      {"IMSPCreateEntry 256: Scan", kNoError},
      {"IMSPModifyEntry 256: Copy Scan", kDataNotFound},
      {"IMSPReadEntryProperties 512:Scan Copy", kDataNotFound},
      {"IMSPDeleteEntry 512:Scan \"\"", kDataNotFound},
      {"IMSPDeleteAB -", kInvalidField},
      {"IMSPIOCtl 7 0 DBCHECK.......", kNoError},
      {"IMSPIOCtl 1 3600000", kNoError},
      {"IMSPCheckString a b 7", kNoError},
      {"IMSPImport 1 2 4000000000", kNotImplemented},
      {"IMSPLogin 127.0.0.1 TOOLKIT KELP", kNoError},
      {"IMSPLogin 127.0.0.1 GUEST \"\"", kNoError},
      {"IMSPLogout", kNoError},
      {"IMSPWakeup", kBookFull},
  };
  ASSERT_EQ(SimulatorCallCount(), std::ssize(expected));
  for (std::int32_t i = 0; i < SimulatorCallCount(); ++i) {
    EXPECT_STREQ(SimulatorCallText(i), expected[i].first);
    EXPECT_EQ(SimulatorCallStatus(i), expected[i].second) << expected[i].first;
  }
  EXPECT_EQ(SimulatorCallText(SimulatorCallCount()), nullptr);
  EXPECT_EQ(SimulatorCallText(-1), nullptr);
}

}  // namespace
}  // namespace quillkit
