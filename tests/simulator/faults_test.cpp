// Faults, wrong replies and the journal: the simulator does what a test requests.

#include "tests/simulator/server_fixture.h"

namespace quillkit {
namespace {

class FaultsTest : public ServerTest {
 protected:
  FaultsTest() {
    LogInAsAdministrator();
    for (const char* name : {"Ann", "Bob", "Cid"}) PutEmail(name);
  }

  // Reads into a buffer of `capacity` records, and one more that must stay blank.
  Status Read(std::uint32_t capacity, const char* filter = "") {
    KeyRange range("", filter);
    records.assign(capacity + 1, {});
    const Status status = IMSPReadAB(&email, &range, records.data(), &(count = capacity), 1);
    EXPECT_TRUE(records.back().IsBlank());
    return status;
  }

  std::vector<CEmailEntry> records;
  PageBoundary census[4];
  std::uint32_t count = 0;
};

TEST_F(FaultsTest, ReportsWrongCounts) {
  const struct {
    std::uint32_t defects, delivered, missed, letters, failed;
  } cases[] = {{0, 3, 0, 3, 0},
               {kDefectDeliveredCount | kDefectFailedCount, 1005, 5, 1004, 5},
               {kDefectUnreported, 2, 0, 2, 0}};
  for (const auto& each : cases) {
    SCOPED_TRACE(testing::Message() << "defects " << each.defects);
    SimulatorSetDefects(each.defects);
    EXPECT_EQ(Read(5), kNoError);
    EXPECT_EQ(count, each.delivered);
    EXPECT_EQ(records[2].name, "Cid");
    EXPECT_EQ(Read(5, "Z*"), kDataNotFound);
    EXPECT_EQ(count, each.missed);
    EXPECT_EQ(IMSPReadPageBoundaries(&email, census, &(count = 4)), kNoError);
    EXPECT_EQ(count, each.letters);
    ABIdent missing(BookKind::kPublicList, "None");
    EXPECT_EQ(IMSPSizeofAB(&missing, nullptr, &(count = 5)), kNoSuchBook);
    EXPECT_EQ(count, each.failed);
  }
  SimulatorSetDefects(0);
  SimulatorFail("IMSPReadAB", 1, kMoreData);
  EXPECT_EQ(Read(2), kMoreData);
  EXPECT_EQ(count, 0U) << "a fault delivers nothing, even with status 21 (more data)";
  EXPECT_TRUE(records[0].IsBlank());
}

TEST_F(FaultsTest, DeliversUnterminatedTextsInTheWrongOrderAndKeepsWhatIsStored) {
  SimulatorSetDefects(kDefectUnterminated | kDefectUnsorted);
  EXPECT_EQ(Read(3), kNoError);
  EXPECT_EQ(records[0].name, "Cid" + std::string(29, '~'));
  EXPECT_EQ(records[1].name, "Bob" + std::string(29, '~'));
  EXPECT_FALSE(records[1].address.IsTerminated());
  CEmailEntry entry;
  EntryKey key("Ann");
  EXPECT_EQ(IMSPReadEntryProperties(&email, &key, &entry), kNoError);
  EXPECT_FALSE(entry.name.IsTerminated());
  EXPECT_EQ(SimulatorFindEntry(BookKind::kEmail, nullptr, nullptr, "Bob", &entry), 1);
  EXPECT_TRUE(entry.IsValid());
}

TEST_F(FaultsTest, OverwritesTheBookTheKeyAndTheRecordOfAChange) {
  SimulatorSetDefects(kDefectScribble);
  EntryKey key("Ann");
  CEmailEntry entry = MakeEntry("Ann");
  EXPECT_EQ(IMSPModifyEntry(&email, &key, &entry), kNoError);
  const std::string overwritten(32, '~');
  EXPECT_EQ(email.name, overwritten);
  EXPECT_EQ(key.name, overwritten);
  EXPECT_EQ(entry.name, overwritten);
  EXPECT_FALSE(entry.address.IsTerminated());
  EXPECT_EQ(IMSPDeleteAB(nullptr), kInvalidField);
}

TEST_F(FaultsTest, ReportsAWrongCensusAndWrongSizes) {
  PutEmail("Bea");
  SimulatorSetDefects(kDefectCensus | kDefectSize);
  EXPECT_EQ(IMSPReadPageBoundaries(&email, census, &(count = 4)), kNoError);
  EXPECT_EQ(census[0].count, 3);
  EXPECT_EQ(census[1].count, -5);
  for (const std::uint32_t size : {11U, 18U, 4U}) {
    if (size == 4) SimulatorSetDefects(0);
    EXPECT_EQ(IMSPSizeofAB(&email, nullptr, &count), kNoError);
    EXPECT_EQ(count, size);
  }
}

// The tests of the library compare the text of every other call.
TEST_F(FaultsTest, RecordsCallsAndTheirStatusInTheJournal) {
  SimulatorRecordCalls(1);
  Call("DeleteEntry 64:None ''");
  Call("DeleteAB");
  SimulatorFail("IMSPWakeup", 1, kBookFull);
  Call("Wakeup");
  SimulatorRecordCalls(0);
  Call("Wakeup");
  ASSERT_EQ(SimulatorCallCount(), 3);
  EXPECT_STREQ(SimulatorCallText(0), "IMSPDeleteEntry 64:None \"\"");
  EXPECT_EQ(SimulatorCallStatus(0), kNoSuchBook);
  EXPECT_STREQ(SimulatorCallText(1), "IMSPDeleteAB -");
  EXPECT_EQ(SimulatorCallStatus(2), kBookFull);
  EXPECT_EQ(SimulatorCallText(-1), nullptr);
}

}  // namespace
}  // namespace quillkit
