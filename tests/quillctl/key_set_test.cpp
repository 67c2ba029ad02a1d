#include "quillctl/key_set.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

#include "quillctl/failures.h"
#include "quillctl/key_set_json.h"

namespace quillctl {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

ItemFields Item(const std::string& name, const std::string& address = "") {
  return {name, address, "", "", 0, 0};
}

std::string FaultOf(const std::string& json) {
  try {
    ParseKeySet(json);
  } catch (const UsageError& fault) {
    return fault.what();
  }
  return "";
}

TEST(KeySetJson, GivesBackTheSameBytes) {
  const KeySet sets[] = {
      {},
      {{"Empty", {}}},
      {{"B\xC3\xBCro \"1\"\\\x01", {{"\xE2\x82\xAC", "a", "b", "c", 0xFFFFFFFF, 7}, Item("x")}}},
      {{"B\xFCro", {Item("\xC3\xBC", std::string(255, '\xFF'))}}},  // Latin-1 beside UTF-8
  };
  for (const KeySet& keys : sets) {
    const KeySet read = ParseKeySet(JsonOf(keys));
    EXPECT_TRUE(Difference(keys, read).empty()) << JsonOf(keys);
    EXPECT_TRUE(Difference(read, keys).empty()) << JsonOf(keys);
  }
  EXPECT_THAT(JsonOf(sets[2]), HasSubstr("\"utf-8\""));
  EXPECT_THAT(JsonOf(sets[3]), HasSubstr("\"latin-1\""));
}

TEST(KeySetJson, RefusesWhatNoApplianceHolds) {
  const std::string name32(32, 'x');
  std::string twelveKeys;
  for (char c = 'a'; c <= 'l'; ++c) {
    twelveKeys += (c == 'a' ? "" : ",") + std::string("{\"name\":\"") + c + "\",\"items\":[]}";
  }
  std::string manyMembers = "{\"a\":0";
  for (char c = 'b'; c <= 'z'; ++c) manyMembers += std::string(",\"") + c + "\":0";
  const auto keys = [](const std::string& list) {
    return "{\"quillbox-keys\":1,\"keys\":[" + list + "]}";
  };
  const auto item = [&keys](const std::string& members) {
    return keys("{\"name\":\"k\",\"items\":[{" + members + "}]}");
  };
  const struct {
    std::string json;
    const char* fault;
  } cases[] = {
      {"", "line 1 is not valid JSON"},
      {"{\n\n", "line 3 is not valid JSON"},
      {"[]", "the file is not an object"},
      {"{\"keys\":[]}", "not a key file: \"quillbox-keys\": 1 is missing"},
      {"{\"quillbox-keys\":2,\"keys\":[]}", "not a key file: \"quillbox-keys\": 1 is missing"},
      {"{\"quillbox-keys\":1}", "the file has no list \"keys\""},
      {"{\"quillbox-keys\":1,\"keys\":[],\"key\":1}", "the file has an unknown member \"key\""},
      {"{\"quillbox-keys\":1,\"encoding\":\"ascii\",\"keys\":[]}", "\"encoding\" is neither"},
      {"{\"quillbox-keys\":1,\"encoding\":\"latin-1\",\"keys\":[{\"name\":\"\xE2\x82\xAC\","
       "\"items\":[]}]}",
       "key 1: its name has a character outside latin-1"},
      {keys(twelveKeys), "the file has more than 11 keys"},
      {keys("1"), "key 1 is not an object"},
      {keys("{\"items\":[]}"), "key 1 has no name"},
      {keys("{\"name\":\"k\"}"), "key 1 has no list \"items\""},
      {keys("{\"name\":\"" + name32 + "\",\"items\":[]}"), "its name is longer than 31"},
      {item("\"nam\":\"i\""), "key 1, item 1 has an unknown member \"nam\""},
      {item("\"path\":\"i\""), "key 1, item 1 has no name"},
      {item("\"name\":\"i\",\"path\":1"), "key 1, item 1: its path is not a string"},
      {item("\"name\":\"i\\u0000\""), "key 1, item 1: its name contains a NUL character"},
      {item("\"name\":\"i\",\"format\":-1"), "its format is not a number from 0"},
      {item("\"name\":\"i\",\"format\":4294967296"), "its format is not a number from 0"},
      {item("\"name\":\"i\",\"name\":\"j\""), "an object has two members \"name\""},
      {std::string(100000, '['), "the file is nested too deeply"},
      {manyMembers, "an object has too many members"},
      {item("\"name\":\"i\",\"settings\":1.0"), "its settings is not a number from 0"},
  };
  for (const auto& each : cases) EXPECT_THAT(FaultOf(each.json), HasSubstr(each.fault));
  EXPECT_EQ(FaultOf(item("\"name\":\"i\"")), "");
}

TEST(KeySetDifference, TellsWhatGoesChangesAndComes) {
  const KeySet now = {{"A", {Item("1", "x"), Item("2")}}, {"B", {Item("3")}}};
  const KeySet wanted = {{"C", {Item("4")}}, {"A", {Item("5"), {"1", "y", "", "t", 1, 17}}}};
  std::vector<std::string> lines;
  for (const KeySetChange& each : Difference(now, wanted)) lines.push_back(Described(each));
  EXPECT_THAT(lines,
              ElementsAre("- the item \"2\" under the key \"A\"", "- the key \"B\" and its items",
                          "~ the item \"1\" under the key \"A\": address \"x\" -> \"y\", "
                          "application \"\" -> \"t\", format 0 -> 1, "
                          "settings 0x00000000 -> 0x00000011",
                          "+ the key \"C\"", "+ the item \"5\" under the key \"A\"",
                          "+ the item \"4\" under the key \"C\""));
}

// Makes a change of a set in memory as an appliance does. Whether it could be made.
bool Make(KeySet& keys, const KeySetChange& change) {
  const auto key = std::ranges::find(keys, change.key, &KeyFields::name);
  if (change.kind == KeySetChange::kAddKey) {
    if (key != keys.end()) return false;
    keys.push_back({change.key, {}});
    return true;
  }
  if (key == keys.end()) return false;
  if (change.kind == KeySetChange::kDeleteKey) return keys.erase(key), true;
  const auto item = std::ranges::find(key->items, change.item.name, &ItemFields::name);
  const bool isThere = item != key->items.end();
  if (isThere == (change.kind == KeySetChange::kAddItem)) return false;
  if (isThere) key->items.erase(item);
  if (change.kind != KeySetChange::kDeleteItem) key->items.push_back(change.item);
  return true;
}

TEST(KeySetDifference, MakesOneSetOfAnyOther) {
  std::mt19937 random(20260801);
  const auto anySet = [&random] {
    KeySet keys;
    for (const char* key : {"a", "b", "c", "d"}) {
      if (random() % 2 == 0) continue;
      keys.push_back({key, {}});
      for (const char* item : {"1", "2", "3"}) {
        if (random() % 2 == 0) keys.back().items.push_back(Item(item, random() % 2 ? "x" : "y"));
      }
      std::ranges::shuffle(keys.back().items, random);
    }
    std::ranges::shuffle(keys, random);
    return keys;
  };
  for (int round = 0; round < 300; ++round) {
    SCOPED_TRACE(round);
    KeySet keys = anySet();
    const KeySet wanted = anySet();
    for (const KeySetChange& change : Difference(keys, wanted)) {
      EXPECT_TRUE(Make(keys, change)) << Described(change);
    }
    EXPECT_TRUE(Difference(keys, wanted).empty());
    EXPECT_EQ(keys.size(), wanted.size());
  }
}

}  // namespace
}  // namespace quillctl
