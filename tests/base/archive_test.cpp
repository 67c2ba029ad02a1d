// Values, texts and objects in a stream, and truncated or damaged streams.

#include "base/archive.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <list>
#include <memory>
#include <string>
#include <string_view>

#include "appliance/scanner.h"
#include "softkeys/top_level_ab.h"

namespace quillkit {
namespace {

using namespace std::literals;

template <class Value>
std::string Stored(Value value) {
  std::string bytes;
  Archive archive(&bytes);
  archive.Exchange(value);
  return bytes;
}

TEST(Archive, StoresAValueInFourBytesWithTheLowestFirst) {
  EXPECT_EQ(Stored(std::uint32_t{0x01020384}), "\x84\x03\x02\x01"s);
  EXPECT_EQ(Stored(std::int32_t{-2}), "\xFE\xFF\xFF\xFF"s);
}

TEST(Archive, StoresTheLengthBeforeATextAndLoadsItAgain) {
  const struct {
    std::size_t length;
    std::string head;
  } forms[] = {{0, "\0"s},
               {254, "\xFE"s},
               {255, "\xFF\xFF\0"s},
               {256, "\xFF\0\1"s},
               {65533, "\xFF\xFD\xFF"s},
               {65534, "\xFF\xFF\xFF\xFE\xFF\0\0"s},
               {70000, "\xFF\xFF\xFF\x70\x11\1\0"s}};
  for (const auto& form : forms) {
    SCOPED_TRACE("length " + std::to_string(form.length));
    std::string text(form.length, 'a');
    if (!text.empty()) text.back() = '\0';
    const std::string bytes = Stored(text);
    EXPECT_EQ(bytes, form.head + text);
    std::string loaded = "before";
    Archive archive{std::string_view(bytes)};
    archive.Exchange(loaded);
    EXPECT_EQ(loaded, text);
    EXPECT_FALSE(archive.Failed());
  }
}

TEST(Archive, LoadsTheCompleteValuesOfATruncatedStream) {
  const std::uint32_t number = 0x11223344;
  const std::string text(300, 't');
  const std::string front = Stored(number) + Stored(text);
  const std::string bytes = front + Stored("field"s) + Stored(number);
  for (std::size_t length = 0; length <= bytes.size(); ++length) {
    SCOPED_TRACE("the first " + std::to_string(length) + " bytes");
    Archive loading(std::string_view(bytes).substr(0, length));
    std::uint32_t first = 1;
    std::string loadedText = "before";
    FixedText<11> field("before");
    std::uint32_t last = 1;
    loading.Exchange(first);
    loading.Exchange(loadedText);
    loading.Exchange(field);
    loading.Exchange(last);
    EXPECT_EQ(first, length >= 4 ? number : 0);
    EXPECT_EQ(loadedText, length >= front.size() ? text : "");
    EXPECT_EQ(field.View(), length >= front.size() + 6 ? "field" : "");
    EXPECT_EQ(last, length == bytes.size() ? number : 0);
    EXPECT_EQ(loading.Failed(), length < bytes.size());
    EXPECT_EQ(loading.Remaining(), 0U);
  }
}

TEST(Archive, FailsAtACountThatTheRemainingBytesCannotHold) {
  const std::string bytes(24, 'x');
  Archive archive{std::string_view(bytes)};
  EXPECT_TRUE(archive.CanHold(2, 12));
  EXPECT_FALSE(archive.Failed());
  EXPECT_FALSE(archive.CanHold(3, 12));
  EXPECT_TRUE(archive.Failed());
  std::string sink;
  EXPECT_TRUE(Archive(&sink).CanHold(0xFFFFFFFF, 12));
}

TEST(FixedText, AssignsAPartOfItself) {
  FixedText<11> field("abcdefgh");
  field.Assign(field.View().substr(3));
  EXPECT_EQ(field.View(), "defgh");
}

// --- Objects ---

TEST(ClassRecord, EachRegisteredClassIsCreatedByItsExactName) {
  for (const ClassRecord* record : RegisteredClasses()) {
    SCOPED_TRACE(record->name);
    EXPECT_EQ(FindClass(record->name), record) << "two classes have this name";
    EXPECT_EQ(record->schema, 1U);
    const std::unique_ptr<RootObject> object(CreateByName(record->name));
    ASSERT_NE(object, nullptr);
    EXPECT_EQ(object->GetRuntimeClass(), record);
  }
  EXPECT_EQ(FindClass("CTopLevelAB"), &CTopLevelAB::kClass);
  for (const char* name : {"", "cscanner", "CScanner ", "CScanne", "CSoftKey"}) {
    EXPECT_EQ(CreateByName(name), nullptr) << name;
  }
}

TEST(ClassRecord, AClassIsDerivedFromItselfAndItsBases) {
  const ClassRecord base = {"Base", 1, 1, nullptr, nullptr};
  const ClassRecord derived = {"Derived", 1, 1, nullptr, &base};
  const ClassRecord further = {"Further", 1, 1, nullptr, &derived};
  for (const ClassRecord* each : {&base, &derived, &further}) EXPECT_TRUE(further.IsA(*each));
  EXPECT_FALSE(derived.IsA(further));
}

// The stored forms of the class, of two scanners, and of the list of both.
const std::string kClass = "\x08"s + "CScanner" + "\1\0\0\0"s;
const std::string kOne = kClass + "\3one\1\0\0\0\2m1\2v1"s;
const std::string kTwo = kClass + "\3two\2\0\0\0\2m2\2v2"s;
const std::string kList = "\2\0\0\0"s + kOne + kTwo;

class ScannerList : public testing::Test {
 protected:
  ~ScannerList() override { Clear(); }

  void Clear() {
    for (const CScanner* each : list) delete each;
    list.clear();
  }

  // Appends the scanners of a stream to the list. Returns the names in the list and, if the archive
  // failed, a question mark.
  std::string Load(std::string_view bytes) {
    Archive archive(bytes);
    archive.Exchange(list);
    std::string names;
    for (const CScanner* each : list) names += each->Name() + ' ';
    return archive.Failed() ? names + '?' : names;
  }

  std::list<CScanner*> list;
};

TEST_F(ScannerList, StoresItsScannersAndAppendsThoseOfAStream) {
  EXPECT_EQ(Load(kList), "one two ");
  EXPECT_EQ(list.front()->Model() + list.front()->Version(), "m1v1");
  EXPECT_EQ(list.back()->Address(), 2U);
  std::string bytes;
  Archive storing(&bytes);
  storing.Exchange(list);
  storing.StoreObject(nullptr);
  EXPECT_EQ(bytes, kList + "\0"s);
  EXPECT_EQ(Load(bytes), "one two one two ");
  Archive null("\0"sv);
  EXPECT_EQ(null.LoadObject<CScanner>(), nullptr);
  EXPECT_FALSE(null.Failed());
}

TEST_F(ScannerList, LoadsTheCompleteObjectsOfADamagedStream) {
  for (std::size_t length = 4; length < kList.size(); ++length) {
    EXPECT_EQ(Load(kList.substr(0, length)), length < 4 + kOne.size() ? "?" : "one ?") << length;
    Clear();
  }
  EXPECT_EQ(Load("\1\0\0\0\0"s), "?") << "a list holds no null";
  EXPECT_EQ(Load("\xFF\xFF\xFF\xFF"s + kOne), "one ?");
}

TEST(ArchiveObject, FailsToLoadAnotherClassOrSchema) {
  for (const std::string& identity :
       {"\x08"s + "CUnknown" + "\1\0\0\0"s, "\x0B"s + "CTopLevelAB" + "\1\0\0\0"s,
        "\x08"s + "CScanner" + "\2\0\0\0"s, "\x0A"s + "RootObject" + "\1\0\0\0"s}) {
    const std::string bytes = identity + std::string(7, '\0');  // the content of a scanner
    Archive archive{std::string_view(bytes)};
    EXPECT_EQ(archive.LoadObject<CScanner>(), nullptr) << identity;
    EXPECT_TRUE(archive.Failed()) << identity;
  }
}

}  // namespace
}  // namespace quillkit
