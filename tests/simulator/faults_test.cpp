// Faults, lies and the journal: what a test orders is what it gets.

#include "bridge/status.h"
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
  Reply Read(std::uint32_t capacity, const char* filter = "") {
    KeyRange range("", filter);
    Reply reply{0, capacity, std::vector<CEmailEntry>(capacity + 1)};
    reply.status = IMSPReadAB(&book, &range, reply.records.data(), &reply.count, 1);
    EXPECT_TRUE(reply.records.back().IsBlank());
    return reply;
  }

  std::uint32_t Size() {
    std::uint32_t count = 0;
    IMSPSizeofAB(&book, nullptr, &count);
    return count;
  }

  ABIdent book{BookKind::kEmail, kEmailBook};
};

TEST_F(FaultsTest, FaultsWaitForTheirTurnAndMeet) {
  SimulatorFail(nullptr, 2, 101);
  SimulatorFail("IMSPAbort", 2, 102);
  SimulatorFail("IMSPAbort", 4, 104);
  SimulatorFail("IMSPWakeup", 0, 103);
  EXPECT_EQ(IMSPAbort(), kNoError);
  EXPECT_EQ(IMSPAbort(), 101);
  EXPECT_EQ(IMSPAbort(), kNoError) << "the fault that lost is used up";
  EXPECT_EQ(IMSPWakeup(), 103);
  EXPECT_EQ(IMSPAbort(), 104);
  EXPECT_EQ(IMSPWakeup(), 103) << "0 is each call";
  SimulatorClearFaults();
  EXPECT_EQ(IMSPWakeup(), kNoError);
}

TEST_F(FaultsTest, FaultedCallDoesNothing) {
  SimulatorFail("IMSPClearAB", 1, kNoError);
  EXPECT_EQ(IMSPClearAB(&book, nullptr), kNoError);
  SimulatorFail("IMSPReadAB", 1, kMoreData);
  const Reply reply = Read(2);
  EXPECT_EQ(reply.status, kMoreData);
  EXPECT_EQ(reply.count, 0U);
  EXPECT_TRUE(reply.records[0].IsBlank());
  EXPECT_EQ(Read(4).count, 3U);

  IMSPTerminate();
  SimulatorFail("IMSPInit", 1, 18);
  EXPECT_EQ(IMSPInit(), 18);
  EXPECT_EQ(IMSPWakeup(), kNotInitialised);
}

TEST_F(FaultsTest, CountsLie) {
  for (const bool lies : {false, true}) {
    SimulatorSetLies(lies ? kLieDeliveredCount | kLieFailedCount : 0);
    EXPECT_EQ(Read(5).count, lies ? 1005U : 3U);
    EXPECT_EQ(Read(5).records[2].name, "Cid");
    EXPECT_EQ(Read(2, "Z*").count, lies ? 2U : 0U);
    PageBoundary table[4];
    std::uint32_t count = 4;
    EXPECT_EQ(IMSPReadPageBoundaries(&book, table, &count), kNoError);
    EXPECT_EQ(count, lies ? 1004U : 3U);
    ABIdent missing(BookKind::kPublicList, "None");
    EXPECT_EQ(IMSPSizeofAB(&missing, nullptr, &(count = 7)), kNoSuchBook);
    EXPECT_EQ(count, lies ? 7U : 0U);
  }
}

TEST_F(FaultsTest, TextsAndTheirOrderLie) {
  SimulatorSetLies(kLieUnterminated | kLieUnsorted);
  const Reply reply = Read(3);
  EXPECT_EQ(reply.records[0].name, "Cid" + std::string(29, '~'));
  EXPECT_EQ(reply.records[1].name, "Bob" + std::string(29, '~'));
  EXPECT_FALSE(reply.records[1].address.IsTerminated());
  CEmailEntry entry;
  EntryKey key("Ann");
  EXPECT_EQ(IMSPReadEntryProperties(&book, &key, &entry), kNoError);
  EXPECT_FALSE(entry.name.IsTerminated());
  EXPECT_EQ(SimulatorFindEntry(BookKind::kEmail, nullptr, nullptr, "Bob", &entry), 1);
  EXPECT_TRUE(entry.IsValid()) << "what is stored stays true";
}

TEST_F(FaultsTest, CensusAndSizeLie) {
  PutEmail("Bea");
  SimulatorSetLies(kLieCensus | kLieSize);
  PageBoundary table[4];
  std::uint32_t count = 4;
  EXPECT_EQ(IMSPReadPageBoundaries(&book, table, &count), kNoError);
  EXPECT_EQ(table[0].count, 3);
  EXPECT_EQ(table[1].count, -5);
  EXPECT_EQ(Size(), 11U);
  EXPECT_EQ(Size(), 18U);
  SimulatorSetLies(0);
  EXPECT_EQ(Size(), 4U);
}

// The form of every call stands where the library's forwarding is tested.
TEST_F(FaultsTest, JournalShowsCallsAndTheirStatus) {
  SimulatorRecordCalls(1);
  EntryKey none;
  ABIdent missing(BookKind::kPublicList, "None");
  IMSPDeleteEntry(&missing, &none);
  IMSPDeleteAB(nullptr);
  SimulatorFail("IMSPWakeup", 1, kBookFull);
  IMSPWakeup();
  SimulatorRecordCalls(0);
  IMSPWakeup();
  ASSERT_EQ(SimulatorCallCount(), 3);
  EXPECT_STREQ(SimulatorCallText(0), "IMSPDeleteEntry 64:None \"\"");
  EXPECT_EQ(SimulatorCallStatus(0), kNoSuchBook);
  EXPECT_STREQ(SimulatorCallText(1), "IMSPDeleteAB -");
  EXPECT_EQ(SimulatorCallStatus(1), kInvalidField);
  EXPECT_EQ(SimulatorCallStatus(2), kBookFull);
  EXPECT_EQ(SimulatorCallText(-1), nullptr);
}

}  // namespace
}  // namespace quillkit
