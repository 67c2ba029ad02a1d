// The entry block against a plain model, in random walks from fixed seeds.

#include "base/entry_block.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <random>
#include <utility>
#include <vector>

namespace quillkit {
namespace {

struct Record {
  std::int32_t id = 0;
  char rest[7] = {};  // so that the size is no power of two

  void Blank() { id = 0; }
  // -1 if it contains bytes that are neither zero nor of another record.
  std::int32_t IdIfClean() const { return std::ranges::count(rest, 0) == 7 ? id : -1; }
};

class EntryBlockWalk : public testing::TestWithParam<unsigned> {
 protected:
  std::int32_t Draw(std::int32_t from, std::int32_t to) {
    return std::uniform_int_distribution(from, to)(random);
  }
  std::int32_t Count() const { return static_cast<std::int32_t>(ids.size()); }

  // Makes the same random change to the block and to its model, and compares the results.
  void Step() {
    const std::int32_t number = Draw(-1, Count() + 1);
    const bool isThere = number >= 0 && number < Count();
    switch (Draw(0, 9)) {
      case 0:
        ids.assign(static_cast<std::size_t>(std::max(number, 0)), 0);
        skip = 0;
        EXPECT_EQ(Draw(0, 1) == 0 ? block.Allocate(number) : Read(number, Draw(0, 1)), number > 0);
        break;
      case 1:
        if (number > 0) ids.resize(static_cast<std::size_t>(number) + 3);
        EXPECT_EQ(block.Resize(number > 0 ? number + 3 : number), number > 0);
        break;
      case 2:
      case 3:
        Shrink(number, Draw(0, 1));
        break;
      case 4:
        ids.clear();
        if (number == 0) block.Clear();
        if (number != 0) block.Free(), skip = 0;
        break;
      case 5: {
        EntryBlock<Record> other(std::move(block));
        EXPECT_TRUE(block.IsEmpty() && block.data() == nullptr);  // NOLINT(bugprone-use-after-move)
        EXPECT_TRUE(block.Allocate(1));
        block = std::move(other);
        break;
      }
      case 6:
        if (isThere) ids.erase(ids.begin() + number);
        EXPECT_EQ(block.RemoveAt(number), isThere);
        break;
      default: {  // appends a record of the block, or a new one
        const Record fresh{.id = ++lastId};
        const Record& record = isThere ? *block.At(number) : fresh;
        ids.push_back(record.id);
        EXPECT_EQ(block.Append(record), Count());
      }
    }
  }

  // A read that counts some records and writes some of them. The others keep what they held: blanks
  // or whole records.
  bool Read(std::int32_t number, std::int32_t direction) {
    const bool isAllocated = block.AllocateToRead(number);
    std::ranges::transform(block, ids.begin(), &Record::IdIfClean);
    EXPECT_EQ(std::ranges::count(ids, -1), 0);
    const auto unread = ids.begin() + Draw(0, Count());
    ids.erase(direction == 0 ? ids.begin() : unread, direction == 0 ? unread : ids.end());
    const std::int32_t unused = std::max(number, 0) - Count();
    if (direction == 0 && Count() != 0) skip = unused;
    for (std::int32_t i = 0; i < Count(); ++i) {
      if (Draw(0, 3) == 0) continue;
      ids[static_cast<std::size_t>(i)] = ++lastId;
      block.data()[direction == 0 ? unused + i : i] = {.id = lastId};
    }
    EXPECT_FALSE(block.KeepDelivered(block.count() + 1, direction));
    EXPECT_TRUE(block.KeepDelivered(Count(), direction));
    return isAllocated;
  }

  void Shrink(std::int32_t count, std::int32_t direction) {
    const std::int32_t surplus = Count() - count;
    const bool fits = count >= 0 && surplus >= 0;
    EXPECT_EQ(block.Shrink(count, direction), fits);
    if (!fits || surplus == 0) return;
    const bool keepsFront = count == 0 || direction == 1;
    const auto first = keepsFront ? ids.begin() + count : ids.begin();
    ids.erase(first, first + surplus);
    if (!keepsFront) skip += surplus;
    if (keepsFront && count != 0) skip = 0;
  }

  std::mt19937 random{GetParam()};
  EntryBlock<Record> block;
  std::vector<std::int32_t> ids;  // the model; 0 for a blank record
  std::int32_t skip = 0;
  std::int32_t lastId = 0;
};

TEST_P(EntryBlockWalk, HoldsTheSameRecordsAsAVectorAfterEachRandomChange) {
  for (int step = 0; step < 400 && !HasFailure(); ++step) {
    SCOPED_TRACE(testing::Message() << "seed " << GetParam() << ", step " << step);
    Step();
    ASSERT_EQ(block.count(), Count());
    EXPECT_EQ(block.IsEmpty(), ids.empty());
    EXPECT_EQ(block.skip(), skip);
    EXPECT_TRUE(std::ranges::equal(block, ids, {}, &Record::IdIfClean));
    for (int i = -1; i <= Count(); ++i) {
      EXPECT_EQ(block.At(i), i >= 0 && i < Count() ? block.begin() + i : nullptr);
    }
    if (Draw(0, 2) != 0) continue;
    for (Record& each : block) each.id = ++lastId;  // shows a record in a wrong place
    std::ranges::transform(block, ids.begin(), &Record::id);
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, EntryBlockWalk, testing::Range(1U, 33U));

TEST(EntryBlock, ARecordThatTheLatestReadDidNotDeliverIsBlankInTheNextOne) {
  for (const std::int32_t direction : {0, 1}) {
    EntryBlock<Record> block;
    for (int read = 0; read < 2; ++read) {
      ASSERT_TRUE(block.AllocateToRead(5));
      for (Record& each : block) each.id = 7;
      block.KeepDelivered(read == 0 ? 5 : 2, direction);
    }
    ASSERT_TRUE(block.AllocateToRead(5));
    for (std::int32_t i = 0; i < 5; ++i) {
      EXPECT_EQ(block.At(i)->IdIfClean(), i == (direction == 1 ? 1 : 3) ? 7 : 0) << "record " << i;
    }
  }
}

TEST(EntryBlock, RejectsASkipAndACountWhoseSumOverflows) {
  EntryBlock<Record> block;
  ASSERT_TRUE(block.Allocate(3));
  ASSERT_TRUE(block.Shrink(1, 0));
  EXPECT_FALSE(block.Resize(INT32_MAX - 1));
  EXPECT_EQ(block.count(), 1);
  EXPECT_EQ(block.skip(), 2);
}

}  // namespace
}  // namespace quillkit
