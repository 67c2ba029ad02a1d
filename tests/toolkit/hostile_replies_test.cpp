// A server that lies about what it delivers: nothing is read or written outside an object, and what
// an application is given stays inside its limits.

#include <gtest/gtest.h>

#include <string>

#include "bridge/the_agent.h"
#include "simulator/simulator.h"
#include "softkeys/soft_key.h"
#include "tests/support/appliance_fixture.h"
#include "tests/toolkit/scratch_file.h"
#include "tests/toolkit/tour.h"

namespace quillkit {
namespace {

class HostileReplies : public ApplianceTest, public testing::WithParamInterface<std::uint32_t> {};

TEST_P(HostileReplies, ATourOfAllFunctionsStaysInBounds) {
  const ScratchFile script("SE emailab \"Ann\" \"ann@mail.example\"\n");
  SimulatorSeed();
  SimulatorSetLies(GetParam());
  Tour(Exports(), script.path());
}

// Every combination of every lie.
INSTANTIATE_TEST_SUITE_P(Lies, HostileReplies, testing::Range(0U, 2U * kLieSize));

// The lies about what a call delivers, while one entry point always fails.
class HostileFailures : public HostileReplies {};

TEST_P(HostileFailures, ATourOfAllFunctionsStaysInBounds) {
  const ScratchFile script("");
  for (const char* entry : {"IMSPReadEntryProperties", "IMSPListABEntries", "IMSPReadAB",
                            "IMSPSizeofAB", "IMSPCreateEntry"}) {
    SCOPED_TRACE(entry);
    SimulatorSeed();
    SimulatorSetLies(GetParam());
    SimulatorFail(entry, 0, 6);
    Tour(Exports(), script.path());
    TheAgent.LoadServerLibrary();
  }
}

INSTANTIATE_TEST_SUITE_P(Lies, HostileFailures, testing::Range(0U, 2U * kLieFailedCount));

TEST_F(HostileReplies, WhatWasClaimedAndNotDeliveredIsBlank) {
  PutKey("Scan", {"Desk"});
  CTopLevelAB* book = GetTopLevelAbook(LogIn());
  SimulatorSetLies(kLieDeliveredCount);
  ASSERT_EQ(LoadTopLevelAbook(book, 1), 0);
  ASSERT_EQ(GetCount(book), 11);
  CSoftKey* key = GetKeyAt(book, 0);
  ASSERT_EQ(GetItemCount(key), 512);
  EXPECT_STREQ(GetItemName(GetItemAt(key, 0)), "Desk");
  for (std::int32_t i = 1; i < 512; ++i) {
    const CMenuItem& item = *GetItemAt(key, i);
    EXPECT_TRUE(item.name.IsEmpty() && item.ipAddress.IsEmpty() && item.path.IsEmpty() &&
                item.appTag.IsEmpty() && item.settings == 0 && item.fileFormat == 0);
  }
  for (std::int32_t i = 1; i < 11; ++i) EXPECT_STREQ(GetKeyName(GetKeyAt(book, i)), "");
}

TEST_F(HostileReplies, AFailedReadThatClaimsItsCountGivesItsStatusAndBlankItems) {
  PutKey("Scan", {"Desk"});
  CTopLevelAB* book = GetTopLevelAbook(LogIn());
  ASSERT_EQ(LoadTopLevelAbook(book, 1), 0);
  CSoftKey* key = GetKeyAt(book, 0);
  SimulatorSetLies(kLieFailedCount);
  SimulatorFail("IMSPReadAB", 1, 6);
  EXPECT_EQ(ModifyMenuItem(key, GetItemAt(key, 0), 1), 6);
  EXPECT_EQ(GetItemCount(key), 512);
  EXPECT_STREQ(GetItemName(GetItemAt(key, 0)), "");
}

TEST_F(HostileReplies, AnIdentityWithoutItsEndIsCut) {
  const std::string endless(300, 'm');
  SimulatorSetIdentity(endless.data(), static_cast<std::uint32_t>(endless.size()));
  CScanner* box = LogIn();
  EXPECT_EQ(GetScannerModel(box), std::string(63, 'm'));
  EXPECT_STREQ(GetScannerVersion(box), "");
}

}  // namespace
}  // namespace quillkit
