#include "tests/toolkit/tour.h"

#include <gtest/gtest.h>

#include <array>
#include <concepts>
#include <cstring>

#include "tests/support/appliance_fixture.h"
#include "tests/support/scratch_folder.h"

namespace quillkit {
namespace {

constexpr std::int32_t kMostKeys = 11;
constexpr std::int32_t kMostItems = 512;
constexpr std::int32_t kItemsNoted = 3;  // of each key: all are checked

class Walk {
 public:
  explicit Walk(const Exports& toolkit) : toolkit_(toolkit) {}

  std::vector<std::string> Take();

 private:
  void Note(const char* what, const std::string& result) {
    notes_.push_back(std::string(what) + ": " + result);
  }

  void Note(const char* what, const void* handle) {
    Note(what, std::string(handle != nullptr ? "a handle" : "null"));
  }

  void Note(const char* what, std::integral auto number) { Note(what, std::to_string(number)); }

  void NoteText(const char* what, const char* text, std::size_t longest) {
    EXPECT_LE(std::strlen(text), longest) << what;
    Note(what, std::string(text));
  }

  // A count, or the -1 of a failure; an index is below the limit of the count.
  void NoteNumber(const char* what, std::int32_t number, std::int32_t most) {
    EXPECT_GE(number, -1) << what;
    EXPECT_LE(number, most) << what;
    Note(what, number);
  }

  void CheckItem(CMenuItem* item);
  void NoteItem(CMenuItem* item);
  void LookAtKey(CSoftKey* key);
  void LookAtKeys(CTopLevelAB* book);
  void LookAtAppliance(CScanner* box);
  void LookAtError();
  CMenuItem* MakeItem(const char* name);
  void ChangeItems(CSoftKey* key, CMenuItem* item);
  void ChangeItemsFast(CSoftKey* key, CMenuItem* item);
  void SearchItems(CSoftKey* key, CMenuItem* item);
  void ChangeKeys(CTopLevelAB* book, CSoftKey* key);
  void ChangeKeysFast(CTopLevelAB* book, CSoftKey* key);
  void Program(CTopLevelAB* book);
  void Import(CScanner* box);

  const Exports& toolkit_;
  std::vector<std::string> notes_;
};

std::vector<std::string> Walk::Take() {
  CScanner* box = toolkit_.LogToQuillbox(kHost, kAdministrator, kPassword, "third", 1);
  Note("LogToQuillbox", box);
  LookAtError();
  if (box != nullptr) {
    LookAtAppliance(box);
    CTopLevelAB* book = toolkit_.GetTopLevelAbook(box);
    Note("GetTopLevelAbook", book);
    if (book != nullptr) Program(book);
    Import(box);
  }
  toolkit_.Logout();
  LookAtError();
  toolkit_.Exit();
  LookAtError();
  return notes_;
}

void Walk::LookAtError() {
  const std::int32_t error = toolkit_.GetLastToolkitError();
  std::array<char, 64> text{};
  std::int32_t size = text.size();
  Note("GetLastToolkitError", error);
  Note("TranslateToolkitError", toolkit_.TranslateToolkitError(error, text.data(), &size));
  NoteText("its text", text.data(), 32);
}

void Walk::LookAtAppliance(CScanner* box) {
  NoteText("GetScannerName", toolkit_.GetScannerName(box), kHost.size());
  NoteText("GetScannerVersion", toolkit_.GetScannerVersion(box), 63);
  NoteText("GetScannerModel", toolkit_.GetScannerModel(box), 63);
  Note("GetScannerAddress", toolkit_.GetScannerAddress(box));
  Note("GetCurrentConnectedUser", toolkit_.GetCurrentConnectedUser(box));
  Note("IsAdminConnected", toolkit_.IsAdminConnected(box));
}

void Walk::Program(CTopLevelAB* book) {
  LookAtKeys(book);
  Note("AddKey", toolkit_.AddKey(book, "Tour", 1));
  CSoftKey* key = nullptr;
  Note("CreateSoftKey", toolkit_.CreateSoftKey("Tour", book, &key));
  CMenuItem* item = MakeItem("First");
  ChangeItems(key, item);
  SearchItems(key, item);
  ChangeItemsFast(key, item);
  ChangeKeys(book, key);
  ChangeKeysFast(book, key);
  toolkit_.DestroyMenuItem(item);
  toolkit_.DestroySoftKey(key);
  Note("LoadTopLevelAbook, names", toolkit_.LoadTopLevelAbook(book, 0));
  LookAtKeys(book);
}

void Walk::LookAtKeys(CTopLevelAB* book) {
  const std::int32_t count = toolkit_.GetCount(book);
  NoteNumber("GetCount", count, kMostKeys);
  for (std::int32_t i = 0; i < count; ++i) LookAtKey(toolkit_.GetKeyAt(book, i));
  EXPECT_EQ(toolkit_.GetKeyAt(book, -1), nullptr);
  EXPECT_EQ(toolkit_.GetKeyAt(book, count), nullptr);
  NoteNumber("FindSoftKeyIndex", toolkit_.FindSoftKeyIndex(book, "Tour"), count - 1);
}

void Walk::LookAtKey(CSoftKey* key) {
  ASSERT_NE(key, nullptr);
  NoteText("GetKeyName", toolkit_.GetKeyName(key), 31);
  const std::int32_t count = toolkit_.GetItemCount(key);
  NoteNumber("GetItemCount", count, kMostItems);
  EXPECT_EQ(toolkit_.IsSoftKeyEmpty(key) != 0, count == 0);
  std::uint32_t onServer = 0;
  Note("GetDBItemCount", toolkit_.GetDBItemCount(key, &onServer));
  Note("its count", onServer);
  for (std::int32_t i = 0; i < count; ++i) {
    CMenuItem* item = toolkit_.GetItemAt(key, i);
    CheckItem(item);
    if (i < kItemsNoted) NoteItem(item);
  }
  EXPECT_EQ(toolkit_.GetItemAt(key, -1), nullptr);
  EXPECT_EQ(toolkit_.GetItemAt(key, count), nullptr);
}

void Walk::CheckItem(CMenuItem* item) {
  ASSERT_NE(item, nullptr);
  EXPECT_LE(std::strlen(toolkit_.GetItemName(item)), 31U);
  EXPECT_LE(std::strlen(toolkit_.IPAddress(item)), 255U);
  EXPECT_LE(std::strlen(toolkit_.Path(item)), 127U);
  EXPECT_LE(std::strlen(toolkit_.AppTag(item)), 127U);
}

void Walk::NoteItem(CMenuItem* item) {
  Note("GetItemName", std::string(toolkit_.GetItemName(item)));
  Note("IPAddress", std::string(toolkit_.IPAddress(item)));
  Note("Path", std::string(toolkit_.Path(item)));
  Note("AppTag", std::string(toolkit_.AppTag(item)));
  Note("FileFormat", toolkit_.FileFormat(item));
  Note("Settings", toolkit_.Settings(item));
}

CMenuItem* Walk::MakeItem(const char* name) {
  CMenuItem* item = nullptr;
  Note("CreateMenuItem", toolkit_.CreateMenuItem(&item));
  Note("SetName", toolkit_.SetName(item, name));
  Note("SetIPAddress", toolkit_.SetIPAddress(item, std::string(256, 'x')));
  Note("SetPath", toolkit_.SetPath(item, "/in"));
  Note("SetAppTag", toolkit_.SetAppTag(item, "tour"));
  Note("SetFileFormat", toolkit_.SetFileFormat(item, 7));
  Note("SetSettings", toolkit_.SetSettings(item, 0xFFFFFFFF));
  return item;
}

void Walk::ChangeItems(CSoftKey* key, CMenuItem* item) {
  Note("AddMenuItem", toolkit_.AddMenuItem(key, item, 1));
  LookAtKey(key);
  toolkit_.SetName(item, "Second");
  Note("RenameMenuItem", toolkit_.RenameMenuItem(key, "First", item, 1));
  Note("ModifyMenuItem", toolkit_.ModifyMenuItem(key, item, 1));
  LookAtKey(key);
}

void Walk::SearchItems(CSoftKey* key, CMenuItem* item) {
  NoteNumber("FindFirstItem", toolkit_.FindFirstItem(key, "Sec", 0), kMostItems - 1);
  NoteNumber("FindNextItem", toolkit_.FindNextItem(key, 0), kMostItems - 1);
  NoteNumber("FindMenuItemIndex", toolkit_.FindMenuItemIndex(key, item), kMostItems - 1);
}

void Walk::ChangeItemsFast(CSoftKey* key, CMenuItem* item) {
  toolkit_.SetName(item, "Third");
  NoteNumber("FastItemAdd", toolkit_.FastItemAdd(key, item), kMostItems);
  Note("FastItemModify", toolkit_.FastItemModify(key, item));
  toolkit_.SetName(item, "Fourth");
  Note("FastItemRename", toolkit_.FastItemRename(key, "Third", item));
  Note("SetItemAt", toolkit_.SetItemAt(key, 0, item));
  LookAtKey(key);
  NoteNumber("FastItemRemove", toolkit_.FastItemRemove(key, item), kMostItems);
  Note("RemoveItemAt", toolkit_.RemoveItemAt(key, 0));
  Note("DeleteMenuItem", toolkit_.DeleteMenuItem(key, "Second", 1));
  LookAtKey(key);
}

void Walk::ChangeKeys(CTopLevelAB* book, CSoftKey* key) {
  Note("ModifyKey", toolkit_.ModifyKey(book, key, 1));
  Note("LoadItems", toolkit_.LoadItems(book, "Tour"));
  Note("RenameSoftKey", toolkit_.RenameSoftKey(book, "Tour", key));
  Note("DeleteKey", toolkit_.DeleteKey(book, "Tour", 1));
  LookAtKeys(book);
}

void Walk::ChangeKeysFast(CTopLevelAB* book, CSoftKey* key) {
  NoteNumber("FastKeyAdd", toolkit_.FastKeyAdd(book, key), kMostKeys);
  Note("FastKeyModify", toolkit_.FastKeyModify(book, key));
  CSoftKey* renamed = nullptr;
  toolkit_.CreateSoftKey("Ruot", book, &renamed);
  Note("FastKeyRename", toolkit_.FastKeyRename(book, "Tour", renamed));
  LookAtKeys(book);
  NoteNumber("FastKeyRemove", toolkit_.FastKeyRemove(book, renamed), kMostKeys);
  toolkit_.DestroySoftKey(renamed);
}

void Walk::Import(CScanner* box) {
  static const ScratchFolder folder;
  static const std::string path =
      folder.Write("script", "SE emailab \"Ann\" \"ann@mail.example\"\n");
  const char* const script = path.c_str();
  ImportOptions options{};
  options.format = ImportFormatScript;
  Note("ImportAddressBook", toolkit_.ImportAddressBook(box, script, &options));
  Note("ImportAddressBook, no options", toolkit_.ImportAddressBook(box, script, nullptr));
}

}  // namespace

std::vector<std::string> Tour(const Exports& toolkit) {
  return Walk(toolkit).Take();
}

}  // namespace quillkit
