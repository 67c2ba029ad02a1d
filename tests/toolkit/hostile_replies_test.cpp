// A server that lies about what it delivers: nothing is read or written outside an object, and what
// an application is given stays inside its limits.

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "bridge/the_agent.h"
#include "simulator/simulator.h"
#include "tests/support/appliance_fixture.h"
#include "tests/support/scratch_folder.h"
#include "toolkit/quillkit.h"

namespace quillkit {
namespace {

constexpr std::int32_t kMostKeys = 11;
constexpr std::int32_t kMostItems = 512;

// A count up to `most`, or the -1 of a failure.
void ExpectCount(std::int32_t count, std::int32_t most) {
  EXPECT_GE(count, -1);
  EXPECT_LE(count, most);
}

void ExpectText(const char* text, std::size_t longest) {
  EXPECT_LE(std::strlen(text), longest);
}

void LookAtKey(CSoftKey* key) {
  ASSERT_NE(key, nullptr);
  ExpectText(GetKeyName(key), 31);
  const std::int32_t count = GetItemCount(key);
  ExpectCount(count, kMostItems);
  EXPECT_EQ(IsSoftKeyEmpty(key) != 0, count == 0);
  std::uint32_t onServer = 0;
  GetDBItemCount(key, &onServer);
  for (std::int32_t i = 0; i < count; ++i) {
    CMenuItem* item = GetItemAt(key, i);
    ASSERT_NE(item, nullptr);
    ExpectText(GetItemName(item), 31);
    ExpectText(IPAddress(item), 255);
    ExpectText(Path(item), 127);
    ExpectText(AppTag(item), 127);
  }
  EXPECT_EQ(GetItemAt(key, count), nullptr);
}

void LookAtKeys(CTopLevelAB* book) {
  const std::int32_t count = GetCount(book);
  ExpectCount(count, kMostKeys);
  for (std::int32_t i = 0; i < count; ++i) LookAtKey(GetKeyAt(book, i));
  EXPECT_EQ(GetKeyAt(book, count), nullptr);
  ExpectCount(FindSoftKeyIndex(book, "Tour"), count - 1);
}

void ChangeItems(CSoftKey* key) {
  CMenuItem item;
  item.SetName("First");
  AddMenuItem(key, &item, 1);
  LookAtKey(key);
  item.SetName("Second");
  RenameMenuItem(key, "First", &item, 1);
  ModifyMenuItem(key, &item, 1);
  LookAtKey(key);
  ExpectCount(FindFirstItem(key, "Sec", 0), kMostItems - 1);
  ExpectCount(FindNextItem(key, 0), kMostItems - 1);
  ExpectCount(FindMenuItemIndex(key, &item), kMostItems - 1);
  item.SetName("Third");
  ExpectCount(FastItemAdd(key, &item), kMostItems);
  FastItemModify(key, &item);
  item.SetName("Fourth");
  FastItemRename(key, "Third", &item);
  SetItemAt(key, 0, &item);
  LookAtKey(key);
  ExpectCount(FastItemRemove(key, &item), kMostItems);
  RemoveItemAt(key, 0);
  DeleteMenuItem(key, "Second", 1);
  LookAtKey(key);
}

void ChangeKeys(CTopLevelAB* book, CSoftKey* key) {
  ModifyKey(book, key, 1);
  LoadItems(book, "Tour");
  RenameSoftKey(book, "Tour", key);
  DeleteKey(book, "Tour", 1);
  LookAtKeys(book);
  ExpectCount(FastKeyAdd(book, key), kMostKeys);
  FastKeyModify(book, key);
  CSoftKey* renamed = nullptr;
  CreateSoftKey("Ruot", book, &renamed);
  FastKeyRename(book, "Tour", renamed);
  LookAtKeys(book);
  ExpectCount(FastKeyRemove(book, renamed), kMostKeys);
  DestroySoftKey(renamed);
}

// All of the functions, as an application may use them from LogToQuillbox to Exit. It goes on
// whatever the server answers.
void Tour() {
  CScanner* box = LogToQuillbox(kHost, kAdministrator, kPassword, "third", 1);
  if (box != nullptr) {
    ExpectText(GetScannerVersion(box), 63);
    ExpectText(GetScannerModel(box), 63);
    CTopLevelAB* book = GetTopLevelAbook(box);
    ASSERT_NE(book, nullptr);
    LookAtKeys(book);
    AddKey(book, "Tour", 1);
    CSoftKey* key = nullptr;
    CreateSoftKey("Tour", book, &key);
    ChangeItems(key);
    ChangeKeys(book, key);
    DestroySoftKey(key);
    LoadTopLevelAbook(book, 0);
    LookAtKeys(book);
    const ScratchFolder folder;
    const std::string script = folder.Write("script", "SE emailab \"Ann\" \"ann@mail.example\"\n");
    ImportOptions options{};
    options.format = ImportFormatScript;
    ImportAddressBook(box, script.c_str(), &options);
  }
  Logout();
  Exit();
}

class HostileServer : public ApplianceTest {};

TEST_F(HostileServer, WhatItWritesIntoARecordChangesNothingHere) {
  PutKey("Scan", {});
  CTopLevelAB* book = GetTopLevelAbook(LogIn());
  LoadTopLevelAbook(book, 1);
  CSoftKey* key = GetKeyAt(book, 0);
  SimulatorSetLies(kLieScribble);
  CMenuItem item;
  item.SetName("Desk");
  EXPECT_EQ(FastItemAdd(key, &item), 1);
  EXPECT_EQ(FastItemModify(key, &item), 1);
  EXPECT_STREQ(GetItemName(&item), "Desk");
  EXPECT_STREQ(GetItemName(GetItemAt(key, 0)), "Desk");
  EXPECT_EQ(FastKeyModify(book, key), 1);
  EXPECT_STREQ(GetKeyName(key), "Scan");
}

class HostileReplies : public ApplianceTest, public testing::WithParamInterface<std::uint32_t> {};

TEST_P(HostileReplies, ATourOfAllFunctionsStaysInBounds) {
  SimulatorSeed();
  SimulatorSetLies(GetParam());
  Tour();
}

// Every combination of every lie.
INSTANTIATE_TEST_SUITE_P(Lies, HostileReplies, testing::Range(0U, 2U * kLieUntold));

// The lies about what a call delivers, while one entry point always fails.
class HostileFailures : public HostileReplies {};

TEST_P(HostileFailures, ATourOfAllFunctionsStaysInBounds) {
  for (const char* entry : {"IMSPReadEntryProperties", "IMSPListABEntries", "IMSPReadAB",
                            "IMSPSizeofAB", "IMSPCreateEntry"}) {
    SCOPED_TRACE(entry);
    SimulatorSeed();
    SimulatorSetLies(GetParam());
    SimulatorFail(entry, 0, 6);
    Tour();
    TheAgent.LoadServerLibrary();
  }
}

INSTANTIATE_TEST_SUITE_P(Lies, HostileFailures, testing::Range(0U, 2U * kLieFailedCount));

}  // namespace
}  // namespace quillkit
