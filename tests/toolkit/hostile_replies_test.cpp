// A server with invalid replies: nothing is read or written outside an object, and all results stay
// within their limits.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <tuple>

#include "simulator/simulator.h"
#include "tests/support/appliance_fixture.h"
#include "tests/support/scratch_folder.h"
#include "tests/toolkit/export_operations.h"
#include "toolkit/quillkit.h"

namespace quillkit {
namespace {

constexpr std::int32_t kMaxKeys = 11;
constexpr std::int32_t kMaxItems = 512;

// A count up to `most`, or the -1 of a failure.
void ExpectCount(std::int32_t count, std::int32_t most) {
  EXPECT_GE(count, -1);
  EXPECT_LE(count, most);
}

void ExpectText(const char* text, std::size_t longest) {
  EXPECT_LE(std::strlen(text), longest);
}

void CheckKey(CSoftKey* key) {
  ASSERT_NE(key, nullptr);
  ExpectText(GetKeyName(key), 31);
  const std::int32_t count = GetItemCount(key);
  ExpectCount(count, kMaxItems);
  EXPECT_EQ(IsSoftKeyEmpty(key) != 0, count == 0);
  for (std::int32_t i = 0; i < count; ++i) {
    CMenuItem* item = GetItemAt(key, i);
    ASSERT_NE(item, nullptr);
    ExpectText(GetItemName(item), 31);
    ExpectText(IPAddress(item), 255);
    ExpectText(Path(item), 127);
    ExpectText(AppTag(item), 127);
  }
  EXPECT_EQ(GetItemAt(key, count), nullptr);
  CMenuItem item;
  item.SetName("Desk");
  ExpectCount(FindFirstItem(key, "Des", 0), count - 1);
  ExpectCount(FindNextItem(key, 0), count - 1);
  ExpectCount(FindMenuItemIndex(key, &item), std::max(count - 1, 0));
  SetItemAt(key, 0, &item);
  RemoveItemAt(key, count - 1);
}

void CheckKeys(CTopLevelAB* book) {
  const std::int32_t count = GetCount(book);
  ExpectCount(count, kMaxKeys);
  for (std::int32_t i = 0; i < count; ++i) CheckKey(GetKeyAt(book, i));
  EXPECT_EQ(GetKeyAt(book, count), nullptr);
  ExpectCount(FindSoftKeyIndex(book, "Scan"), count - 1);
}

class HostileServer : public ApplianceTest {
 protected:
  // Runs every exported function that calls the server, regardless of earlier results, and the
  // import; login and logout come last.
  static void CallAll(std::uint32_t defects, const char* failingEntry) {
    SimulatorReset();
    Stage stage(LogIn());
    SimulatorSetDefects(defects);
    if (*failingEntry != '\0') SimulatorFail(failingEntry, 0, 6);
    const ScratchFolder folder;
    const std::string script = folder.Write("script", "SE emailab \"Ann\" \"ann@mail.example\"\n");
    ImportOptions options{};
    options.format = ImportFormatScript;
    ImportAddressBook(stage.box, script.c_str(), &options);
    for (const Operation& each : ExportOperations()) {
      SCOPED_TRACE(each.name);
      each.run(stage);
      if (stage.box == nullptr || GetTopLevelAbook(stage.box) == nullptr) return;
      ExpectText(GetScannerVersion(stage.box), 63);
      ExpectText(GetScannerModel(stage.box), 63);
      stage.book = GetTopLevelAbook(stage.box);
      CheckKeys(stage.book);
      CheckKey(stage.newKey);
      stage.key = GetCount(stage.book) > 0 ? GetKeyAt(stage.book, 0) : stage.newKey;
    }
  }
};

TEST_F(HostileServer, WritingIntoTheRecordsOfACallChangesNothingInMemory) {
  PutKey("Scan", {});
  CTopLevelAB* book = GetTopLevelAbook(LogIn());
  LoadTopLevelAbook(book, 1);
  CSoftKey* key = GetKeyAt(book, 0);
  SimulatorSetDefects(kDefectScribble);
  CMenuItem item;
  item.SetName("Desk");
  EXPECT_EQ(FastItemAdd(key, &item), 1);
  EXPECT_EQ(FastItemModify(key, &item), 1);
  EXPECT_STREQ(GetItemName(&item), "Desk");
  EXPECT_STREQ(GetItemName(GetItemAt(key, 0)), "Desk");
  EXPECT_EQ(FastKeyModify(book, key), 1);
  EXPECT_STREQ(GetKeyName(key), "Scan");
}

// The parameters: the defects, and an entry point that always fails, or none.
class HostileReplies : public HostileServer,
                       public testing::WithParamInterface<std::tuple<std::uint32_t, const char*>> {
};

TEST_P(HostileReplies, AllFunctionsStayInBounds) {
  CallAll(std::get<0>(GetParam()), std::get<1>(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(AllCombinationsOfDefects, HostileReplies,
                         testing::Combine(testing::Range(0U, 2U * kDefectUnreported),
                                          testing::Values("")));

INSTANTIATE_TEST_SUITE_P(DefectsOfCountsWithAFailure, HostileReplies,
                         testing::Combine(testing::Range(0U, 2U * kDefectFailedCount),
                                          testing::Values("IMSPReadEntryProperties",
                                                          "IMSPListABEntries", "IMSPReadAB",
                                                          "IMSPSizeofAB", "IMSPCreateEntry")));

}  // namespace
}  // namespace quillkit
