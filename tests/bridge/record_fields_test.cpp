// Every text field of every record of the server boundary: its limit, and what a server can leave
// in it.

#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "base/archive.h"
#include "bridge/records.h"

namespace quillkit {
namespace {

struct Field {
  const char* name;
  std::size_t limit;  // characters
  std::function<int(std::string_view)> set;
  std::function<std::string_view()> get;
};

std::ostream& operator<<(std::ostream& out, const Field& each) {
  return out << each.name;
}

// A field of a record of its own.
template <class Record, class Text>
Field FieldOf(const char* name, std::size_t limit, int (Record::*set)(std::string_view),
              Text Record::*field) {
  const auto record = std::make_shared<Record>();
  return {name, limit, [=](std::string_view text) { return (record.get()->*set)(text); },
          [=] { return (record.get()->*field).View(); }};
}

std::vector<Field> Fields() {
  return {
      FieldOf("ABIdent.name", 31, &ABIdent::SetName, &ABIdent::name),
      FieldOf("EntryKey.name", 31, &EntryKey::SetKey, &EntryKey::name),
      FieldOf("CMenuItem.name", 31, &CMenuItem::SetName, &CMenuItem::name),
      FieldOf("CMenuItem.ipAddress", 255, &CMenuItem::SetIPAddress, &CMenuItem::ipAddress),
      FieldOf("CMenuItem.path", 127, &CMenuItem::SetPath, &CMenuItem::path),
      FieldOf("CMenuItem.appTag", 127, &CMenuItem::SetAppTag, &CMenuItem::appTag),
      FieldOf("CEmailEntry.name", 31, &CEmailEntry::SetName, &CEmailEntry::name),
      FieldOf("CEmailEntry.address", 255, &CEmailEntry::SetAddress, &CEmailEntry::address),
      FieldOf("CFaxEntry.name", 31, &CFaxEntry::SetName, &CFaxEntry::name),
      FieldOf("CFaxEntry.number", 79, &CFaxEntry::SetNumber, &CFaxEntry::number),
      FieldOf("CFaxEntry.third", 10, &CFaxEntry::SetThird, &CFaxEntry::third),
      FieldOf("CUserEntry.name", 31, &CUserEntry::SetName, &CUserEntry::name),
      FieldOf("CUserEntry.password", 15, &CUserEntry::SetPassword, &CUserEntry::password),
      FieldOf("CUserEntry.third", 255, &CUserEntry::SetThird, &CUserEntry::third),
      FieldOf("CUserEntry.fourth", 255, &CUserEntry::SetFourth, &CUserEntry::fourth),
  };
}

class RecordField : public testing::TestWithParam<Field> {};

TEST_P(RecordField, TakesATextUpToItsLimit) {
  const Field& field = GetParam();
  const std::string longest(field.limit, '\xE9');
  EXPECT_EQ(field.set(longest), 1);
  EXPECT_EQ(field.get(), longest);
  EXPECT_EQ(field.set(longest + 'x'), 0);
  EXPECT_EQ(field.get(), longest);
  EXPECT_EQ(field.set("\t *\""), 1);
  EXPECT_EQ(field.get(), "\t *\"");
  EXPECT_EQ(field.set(""), 1);
  EXPECT_EQ(field.get(), "");
}

INSTANTIATE_TEST_SUITE_P(Fields, RecordField, testing::ValuesIn(Fields()));

// --- Records that a server filled without a NUL ---

template <class Record>
class ServedRecord : public testing::Test {
 protected:
  ServedRecord() { std::memset(static_cast<void*>(&record_), 'x', sizeof record_); }

  Record record_;
};

using Records = testing::Types<CMenuItem, CEmailEntry, CFaxEntry, CUserEntry>;
TYPED_TEST_SUITE(ServedRecord, Records);

TYPED_TEST(ServedRecord, IsNotValidUntilItsTextsAreEnded) {
  EXPECT_FALSE(this->record_.IsValid());
  this->record_.Terminate();
  EXPECT_TRUE(this->record_.IsValid());
  EXPECT_EQ(std::strlen(this->record_.name.c_str()), 31U);
}

TYPED_TEST(ServedRecord, IsStoredAsFarAsItsFieldsGo) {
  std::string bytes;
  Archive storing(&bytes);
  this->record_.Serialize(storing);
  EXPECT_LT(bytes.size(), sizeof(TypeParam) + 16);

  // Each text is one character longer than its field holds.
  TypeParam loaded;
  Archive loading{std::string_view(bytes)};
  loaded.Serialize(loading);
  EXPECT_FALSE(loading.Failed());
  EXPECT_EQ(loading.Remaining(), 0U);
  EXPECT_TRUE(loaded.IsValid());
}

}  // namespace
}  // namespace quillkit
