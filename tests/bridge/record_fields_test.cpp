// Every text field of every record of the server boundary: its limit, and what a server can leave
// in it.

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <string_view>

#include "base/archive.h"
#include "bridge/records.h"

namespace quillkit {
namespace {

template <class Record, class Text>
void ExpectLimit(std::size_t limit, int (Record::*set)(std::string_view), Text Record::*field) {
  SCOPED_TRACE(testing::Message() << "of " << sizeof(Record) << " bytes, " << limit);
  Record record;
  const std::string longest(limit, '\xE9');
  EXPECT_EQ((record.*set)(longest), 1);
  EXPECT_EQ((record.*set)(longest + 'x'), 0);
  EXPECT_EQ((record.*field).View(), longest);
}

TEST(RecordField, TakesATextUpToItsLimit) {
  ExpectLimit(31, &ABIdent::SetName, &ABIdent::name);
  ExpectLimit(31, &EntryKey::SetKey, &EntryKey::name);
  ExpectLimit(31, &CMenuItem::SetName, &CMenuItem::name);
  ExpectLimit(255, &CMenuItem::SetIPAddress, &CMenuItem::ipAddress);
  ExpectLimit(127, &CMenuItem::SetPath, &CMenuItem::path);
  ExpectLimit(127, &CMenuItem::SetAppTag, &CMenuItem::appTag);
  ExpectLimit(31, &CEmailEntry::SetName, &CEmailEntry::name);
  ExpectLimit(255, &CEmailEntry::SetAddress, &CEmailEntry::address);
  ExpectLimit(31, &CFaxEntry::SetName, &CFaxEntry::name);
  ExpectLimit(79, &CFaxEntry::SetNumber, &CFaxEntry::number);
  ExpectLimit(10, &CFaxEntry::SetThird, &CFaxEntry::third);
  ExpectLimit(31, &CUserEntry::SetName, &CUserEntry::name);
  ExpectLimit(15, &CUserEntry::SetPassword, &CUserEntry::password);
  ExpectLimit(255, &CUserEntry::SetThird, &CUserEntry::third);
  ExpectLimit(255, &CUserEntry::SetFourth, &CUserEntry::fourth);
}

// A record that a server filled without a NUL is valid once its texts are ended, and is stored as
// far as its fields go: each text is one character longer than its field holds.
template <class Record>
void ExpectEndsItsTexts() {
  Record record;
  std::memset(static_cast<void*>(&record), 'x', sizeof record);
  std::string bytes;
  Archive storing(&bytes);
  record.Serialize(storing);
  EXPECT_LT(bytes.size(), sizeof record + 16);
  Record loaded;
  Archive loading{std::string_view(bytes)};
  loaded.Serialize(loading);
  EXPECT_FALSE(loading.Failed());
  EXPECT_EQ(loading.Remaining(), 0U);
  EXPECT_TRUE(loaded.IsValid());

  EXPECT_FALSE(record.IsValid());
  record.Terminate();
  EXPECT_TRUE(record.IsValid());
  EXPECT_EQ(std::strlen(record.name.c_str()), 31U);
}

TEST(ServedRecord, IsValidOnceItsTextsAreEnded) {
  ExpectEndsItsTexts<CMenuItem>();
  ExpectEndsItsTexts<CEmailEntry>();
  ExpectEndsItsTexts<CFaxEntry>();
  ExpectEndsItsTexts<CUserEntry>();
}

}  // namespace
}  // namespace quillkit
