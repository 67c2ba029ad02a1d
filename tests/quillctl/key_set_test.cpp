#include "quillctl/key_set.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "quillctl/failures.h"
#include "quillctl/key_set_json.h"

namespace quillctl {
namespace {

using testing::HasSubstr;

// Parses JSON that has single quotes in place of double ones. Returns the message of the failure.
std::string FaultOf(std::string json) {
  std::ranges::replace(json, '\'', '"');
  try {
    ParseKeySet(json);
  } catch (const UsageError& fault) {
    return fault.what();
  }
  return "";
}

TEST(KeySetJson, YieldsTheSameBytesAfterParsing) {
  const KeySet sets[] = {
      {},
      {{"Empty", {}}},
      {{"B\xC3\xBCro \"1\"\\\x01",
        {{"\xE2\x82\xAC", "a", "b", "c", 0xFFFFFFFF, 7}, {"x", "", "", "", 0, 0}}}},
      {{"B\xFCro",
        {{"\xC3\xBC", std::string(255, '\xFF'), "", "", 0, 0}}}},  // Latin-1 beside UTF-8
  };
  for (const KeySet& keys : sets) {
    EXPECT_TRUE(Difference(keys, ParseKeySet(JsonOf(keys))).empty()) << JsonOf(keys);
  }
  EXPECT_THAT(JsonOf(sets[2]), HasSubstr("\"utf-8\""));
  EXPECT_THAT(JsonOf(sets[3]), HasSubstr("\"latin-1\""));
}

TEST(KeySetJson, RejectsKeysThatNoApplianceCanHold) {
  std::string manyMembers = "{'a':0";
  for (char c = 'b'; c <= 'z'; ++c) manyMembers += std::string(",'") + c + "':0";
  const auto keys = [](const std::string& list) {
    return "{'quillbox-keys':1,'keys':[" + list + "]}";
  };
  const auto item = [&keys](const std::string& members) {
    return keys("{'name':'k','items':[{" + members + "}]}");
  };
  const struct {
    std::string json;
    const char* fault;
  } cases[] = {
      {"", "line 1 is not valid JSON"},
      {"[]", "the file is not an object"},
      {"{'keys':[]}", "not a key file: \"quillbox-keys\": 1 is missing"},
      {"{'quillbox-keys':2,'keys':[]}", "not a key file: \"quillbox-keys\": 1 is missing"},
      {"{'quillbox-keys':1}", "the file has no list \"keys\""},
      {"{'quillbox-keys':1,'keys':[],'key':1}", "the file has an unknown member \"key\""},
      {"{'quillbox-keys':1,'encoding':'ascii','keys':[]}", "\"encoding\" is neither"},
      {"{'quillbox-keys':1,'encoding':'latin-1','keys':[{'name':'\xE2\x82\xAC','items':[]}]}",
       "key 1: its name has a character outside latin-1"},
      {keys("1,2,3,4,5,6,7,8,9,10,11,12"), "the file has more than 11 keys"},
      {keys("1,2,3,4,5,6,7,8,9,10,11"), "key 1 is not an object"},
      {keys("{'items':[]}"), "key 1 has no name"},
      {keys("{'name':'k'}"), "key 1 has no list \"items\""},
      {keys("{'name':'" + std::string(32, 'x') + "','items':[]}"), "its name is longer than 31"},
      {item("'nam':'i'"), "key 1, item 1 has an unknown member \"nam\""},
      {item("'path':'i'"), "key 1, item 1 has no name"},
      {item("'name':'i','path':1"), "key 1, item 1: its path is not a string"},
      {item("'name':'i\\u0000'"), "key 1, item 1: its name contains a NUL character"},
      {item("'name':'i','format':-1"), "its format is not a number from 0"},
      {item("'name':'i','format':4294967296"), "its format is not a number from 0"},
      {item("'name':'i','name':'j'"), "an object has two members named \"name\""},
      {std::string(100000, '['), "the file is nested too deeply"},
      {manyMembers, "an object has too many members"},
      {item("'name':'i','settings':1.0"), "its settings is not a number from 0"},
  };
  for (const auto& each : cases) EXPECT_THAT(FaultOf(each.json), HasSubstr(each.fault));
  EXPECT_EQ(FaultOf(item("'name':'i'")), "");
}

}  // namespace
}  // namespace quillctl
