// Objects and lists of them in a stream: class identity, and what a hostile stream makes of it.

#include <gtest/gtest.h>

#include <cstdint>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "appliance/scanner.h"
#include "base/archive.h"
#include "softkeys/top_level_ab.h"

namespace quillkit {
namespace {

using namespace std::literals;
using Names = std::vector<std::string>;

const std::string kClass = "\x08"s + "CScanner" + "\1\0\0\0"s;

// A scanner and a list of two, as they are stored.
const std::string kOne = kClass + "\3one\1\0\0\0\2m1\2v1"s;
const std::string kTwo = kClass + "\3two\2\0\0\0\2m2\2v2"s;
const std::string kList = "\2\0\0\0"s + kOne + kTwo;

// The names of the scanners that a list then holds, and whether all of it loaded.
Names LoadList(std::string_view bytes, bool* whole) {
  Archive archive(bytes);
  std::list<CScanner*> list;
  archive.Exchange(list);
  *whole = !archive.Failed();
  Names names;
  for (const CScanner* each : list) {
    names.push_back(each->Name());
    delete each;
  }
  return names;
}

TEST(ArchiveObjects, AListIsItsCountAndItsObjects) {
  std::list<CScanner*> list;
  Archive loading(kList);
  loading.Exchange(list);
  ASSERT_EQ(list.size(), 2U);
  const std::unique_ptr<CScanner> one(list.front());
  const std::unique_ptr<CScanner> two(list.back());
  EXPECT_EQ(one->Name() + one->Model() + one->Version(), "onem1v1");
  EXPECT_EQ(two->Address(), 2U);

  std::string bytes;
  Archive storing(&bytes);
  storing.Exchange(list);
  storing.StoreObject(nullptr);
  EXPECT_EQ(bytes, kList + "\0"s);
  Archive again{std::string_view(bytes)};
  again.Exchange(list);
  EXPECT_EQ(again.LoadObject<CScanner>(), nullptr);
  EXPECT_FALSE(again.Failed());
  ASSERT_EQ(list.size(), 4U) << "behind what is there";
  delete *std::next(list.begin(), 2);
  delete list.back();
}

// What follows the class is a scanner's content in each case, so that only the class can be at
// fault.
TEST(ArchiveObjects, OtherClassesAreNotMade) {
  for (const std::string& identity :
       {"\x08"s + "CUnknown" + "\1\0\0\0"s, "\x0B"s + "CTopLevelAB" + "\1\0\0\0"s,
        "\x08"s + "CScanner" + "\2\0\0\0"s, "\x0A"s + "RootObject" + "\1\0\0\0"s}) {
    const std::string bytes = identity + std::string(7, '\0');
    Archive archive{std::string_view(bytes)};
    EXPECT_EQ(archive.LoadObject<CScanner>(), nullptr) << identity;
    EXPECT_TRUE(archive.Failed()) << identity;
  }
}

TEST(ArchiveObjects, AListGivesTheWholeObjectsOfACutStream) {
  bool whole = true;
  for (std::size_t length = 4; length < kList.size(); ++length) {
    SCOPED_TRACE(length);
    const bool holdsOne = length >= 4 + kOne.size();
    EXPECT_EQ(LoadList(kList.substr(0, length), &whole), holdsOne ? Names{"one"} : Names{});
    EXPECT_FALSE(whole);
  }
  EXPECT_EQ(LoadList("\xFF\xFF\xFF\xFF"s + kOne, &whole), Names{"one"});
  EXPECT_FALSE(whole);
  EXPECT_EQ(LoadList("\1\0\0\0\0"s, &whole), Names{});
  EXPECT_FALSE(whole) << "a list holds no null";
}

// Every byte of a good stream changed in turn: what comes out is whole objects, however many.
TEST(ArchiveObjects, ADamagedStreamGivesWholeObjectsOrNone) {
  for (std::size_t place = 0; place < kList.size(); ++place) {
    for (const char damage : {'\0', '\x01', '\x7F', '\xFE', '\xFF'}) {
      SCOPED_TRACE(testing::Message() << "byte " << place << " is " << int{damage});
      std::string damaged = kList;
      damaged[place] = damage;
      bool whole = true;
      EXPECT_LE(LoadList(damaged, &whole).size(), 2U);
    }
  }
}

}  // namespace
}  // namespace quillkit
