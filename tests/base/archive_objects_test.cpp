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

const std::string kClass = "\x08"s + "CScanner" + "\1\0\0\0"s;

// A list that owns its scanners.
class Scanners {
 public:
  Scanners() = default;
  Scanners(const Scanners&) = delete;
  Scanners& operator=(const Scanners&) = delete;
  ~Scanners() {
    for (const CScanner* each : list) delete each;
  }

  void Add(const std::string& name, std::uint32_t address) {
    auto scanner = std::make_unique<CScanner>();
    scanner->SetName(name);
    scanner->SetAddress(&address);
    scanner->SetModel(name + " model");
    scanner->SetVersion(name + " version");
    list.push_back(scanner.release());
  }

  std::string Stored() {
    std::string bytes;
    Archive archive(&bytes);
    archive.Exchange(list);
    return bytes;
  }

  // Whether all of it loaded.
  bool Load(std::string_view bytes) {
    Archive archive(bytes);
    archive.Exchange(list);
    return !archive.Failed();
  }

  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const CScanner* each : list) names.push_back(each->Name());
    return names;
  }

  std::list<CScanner*> list;
};

TEST(ArchiveObjects, AListComesBackWithItsObjects) {
  Scanners stored;
  stored.Add("one", 0x0100007F);
  stored.Add("two", 0xFFFFFFFF);
  Scanners loaded;
  loaded.Add("there", 1);
  ASSERT_TRUE(loaded.Load(stored.Stored()));
  EXPECT_EQ(loaded.Names(), (std::vector<std::string>{"there", "one", "two"}));
  const CScanner& last = *loaded.list.back();
  EXPECT_EQ(last.Address(), 0xFFFFFFFF);
  EXPECT_EQ(last.Model(), "two model");
  EXPECT_EQ(last.Version(), "two version");
  EXPECT_FALSE(last.IsBound());
}

TEST(ArchiveObjects, AnObjectIsItsClassItsSchemaAndItsFields) {
  CScanner scanner;
  scanner.SetName("n");
  const std::uint32_t address = 0x04030201;
  scanner.SetAddress(&address);
  scanner.SetModel("m");
  std::string bytes;
  Archive archive(&bytes);
  archive.StoreObject(&scanner);
  archive.StoreObject(nullptr);
  EXPECT_EQ(bytes, kClass + "\1n\1\2\3\4\1m\0\0"s);
}

TEST(ArchiveObjects, NullComesBackAsNull) {
  Archive archive("\0rest"sv);
  EXPECT_EQ(archive.LoadObject<CScanner>(), nullptr);
  EXPECT_FALSE(archive.Failed());
  EXPECT_EQ(archive.Remaining(), 4U);
}

// What follows the class is a scanner's content in each case, so that only the class can be at
// fault.
TEST(ArchiveObjects, OtherClassesAreNotMade) {
  const std::string content = "\0\0\0\0\0\0\0"s;
  for (const std::string& identity :
       {"\x08"s + "CUnknown" + "\1\0\0\0"s, "\x08"s + "cscanner" + "\1\0\0\0"s,
        "\x0B"s + "CTopLevelAB" + "\1\0\0\0"s, "\x08"s + "CScanner" + "\2\0\0\0"s,
        "\x0A"s + "RootObject" + "\1\0\0\0"s}) {
    const std::string bytes = identity + content;
    Archive archive{std::string_view(bytes)};
    EXPECT_EQ(archive.LoadObject<CScanner>(), nullptr) << identity;
    EXPECT_TRUE(archive.Failed()) << identity;
  }
}

TEST(ArchiveObjects, AListGivesTheWholeObjectsOfACutStream) {
  Scanners stored;
  stored.Add("one", 1);
  const std::size_t firstEnd = stored.Stored().size();
  stored.Add("two", 2);
  const std::string bytes = stored.Stored();
  for (std::size_t length = 4; length < bytes.size(); ++length) {
    SCOPED_TRACE(length);
    Scanners loaded;
    EXPECT_FALSE(loaded.Load(bytes.substr(0, length)));
    EXPECT_EQ(loaded.list.size(), length < firstEnd ? 0U : 1U);
  }
}

TEST(ArchiveObjects, ACountThatLiesEndsWithTheStream) {
  Scanners stored;
  stored.Add("one", 1);
  std::string bytes = stored.Stored();
  bytes.replace(0, 4, "\xFF\xFF\xFF\xFF");
  Scanners loaded;
  EXPECT_FALSE(loaded.Load(bytes));
  EXPECT_EQ(loaded.list.size(), 1U);

  Scanners none;
  EXPECT_FALSE(none.Load("\1\0\0\0\0"s)) << "a list holds no null";
  EXPECT_TRUE(none.list.empty());
}

// Every byte of a good stream changed in turn: what comes out is whole objects, however many.
TEST(ArchiveObjects, ADamagedStreamGivesWholeObjectsOrNone) {
  Scanners stored;
  stored.Add("one", 1);
  stored.Add("two", 2);
  const std::string bytes = stored.Stored();
  for (std::size_t place = 0; place < bytes.size(); ++place) {
    for (const char damage : {'\0', '\x01', '\x7F', '\xFE', '\xFF'}) {
      SCOPED_TRACE(testing::Message() << "byte " << place << " is " << int{damage});
      std::string damaged = bytes;
      damaged[place] = damage;
      Scanners loaded;
      loaded.Load(damaged);
      EXPECT_LE(loaded.list.size(), 2U);
      for (const CScanner* each : loaded.list) EXPECT_LE(each->Name().size(), bytes.size());
    }
  }
}

}  // namespace
}  // namespace quillkit
