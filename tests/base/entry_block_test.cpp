// The entry block against a plain model, in random walks from fixed seeds.

#include "base/entry_block.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <utility>
#include <vector>

namespace quillkit {
namespace {

struct Record {
  std::int32_t id = 0;
  char rest[7] = {};  // so that the size is no power of two
};

// A block and what it should hold. Each operation does the same to both and compares the result.
class Pair {
 public:
  void Allocate(std::int32_t count) {
    ids_ = Blank(count);
    skip_ = 0;
    EXPECT_EQ(block_.Allocate(count), count > 0);
  }

  void Resize(std::int32_t count) {
    if (count > 0) ids_.resize(static_cast<std::size_t>(count));
    EXPECT_EQ(block_.Resize(count), count > 0);
  }

  void Shrink(std::int32_t count, std::int32_t direction) {
    const std::int32_t surplus = Count() - count;
    const bool fits = count >= 0 && surplus >= 0;
    EXPECT_EQ(block_.Shrink(count, direction), fits);
    if (!fits || surplus == 0) return;
    if (count == 0 || direction == 1) {
      ids_.resize(static_cast<std::size_t>(count));
      if (count != 0) skip_ = 0;
    } else {
      ids_.erase(ids_.begin(), ids_.begin() + surplus);
      skip_ += surplus;
    }
  }

  // Appends a record, or with an index one that lies in the block.
  void Append(std::int32_t index) {
    const Record fresh{.id = ++lastId_};
    const Record& record = block_.Holds(index) ? *block_.At(index) : fresh;
    ids_.push_back(record.id);
    EXPECT_EQ(block_.Append(record), Count());
  }

  void RemoveAt(std::int32_t index) {
    const bool isThere = index >= 0 && index < Count();
    if (isThere) ids_.erase(ids_.begin() + index);
    EXPECT_EQ(block_.RemoveAt(index), isThere);
  }

  void Empty(bool free) {
    ids_.clear();
    if (!free) return block_.Clear();
    block_.Free();
    skip_ = 0;
  }

  void Move() {
    EntryBlock<Record> other(std::move(block_));
    EXPECT_TRUE(block_.IsEmpty());  // NOLINT(bugprone-use-after-move)
    EXPECT_EQ(block_.data(), nullptr);
    block_ = std::move(other);
  }

  // Gives every live record an id of its own, so that one out of its place shows.
  void Mark() {
    for (Record& each : block_) each.id = ++lastId_;
    ids_.clear();
    for (const Record& each : block_) ids_.push_back(each.id);
  }

  void ExpectAlike() const {
    ASSERT_EQ(block_.count(), Count());
    EXPECT_EQ(block_.IsEmpty(), ids_.empty());
    EXPECT_EQ(block_.skip(), skip_);
    std::vector<std::int32_t> found;
    for (const Record& each : block_) found.push_back(each.id);
    EXPECT_EQ(found, ids_);
    EXPECT_EQ(block_.At(-1), nullptr);
    EXPECT_EQ(block_.At(Count()), nullptr);
    for (int i = 0; i < Count(); ++i) EXPECT_EQ(block_.At(i), block_.begin() + i);
  }

  std::int32_t Count() const { return static_cast<std::int32_t>(ids_.size()); }

 private:
  static std::vector<std::int32_t> Blank(std::int32_t count) {
    return std::vector<std::int32_t>(static_cast<std::size_t>(count > 0 ? count : 0));
  }

  EntryBlock<Record> block_;
  std::vector<std::int32_t> ids_;
  std::int32_t skip_ = 0;
  std::int32_t lastId_ = 0;
};

class EntryBlockWalk : public testing::TestWithParam<unsigned> {};

TEST_P(EntryBlockWalk, HoldsWhatTheModelHolds) {
  std::mt19937 random(GetParam());
  const auto draw = [&](std::int32_t from, std::int32_t to) {
    return std::uniform_int_distribution(from, to)(random);
  };
  Pair pair;
  for (int step = 0; step < 400; ++step) {
    SCOPED_TRACE(testing::Message() << "seed " << GetParam() << ", step " << step);
    const std::int32_t number = draw(-1, pair.Count() + 1);
    switch (draw(0, 9)) {
      case 0:
        pair.Allocate(draw(-1, 30));
        break;
      case 1:
        pair.Resize(draw(-1, pair.Count() + 5));
        break;
      case 2:
        pair.Shrink(number, 1);
        break;
      case 3:
        pair.Shrink(number, 0);
        break;
      case 4:
        pair.Empty(draw(0, 3) == 0);
        break;
      case 5:
        pair.Move();
        break;
      case 6:
        pair.RemoveAt(number);
        break;
      default:
        pair.Append(number);
        break;
    }
    pair.ExpectAlike();
    if (HasFailure()) return;
    if (draw(0, 2) == 0) pair.Mark();
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, EntryBlockWalk, testing::Range(1U, 33U));

TEST(EntryBlock, RefusesWhatWouldNotFitBehindTheSkip) {
  EntryBlock<char> block;
  ASSERT_TRUE(block.Allocate(3));
  ASSERT_TRUE(block.Shrink(1, 0));
  EXPECT_FALSE(block.Resize(INT32_MAX));
  EXPECT_FALSE(block.Resize(INT32_MAX - 1));
  EXPECT_EQ(block.count(), 1);
  EXPECT_EQ(block.skip(), 2);
}

}  // namespace
}  // namespace quillkit
