#include "import/line_reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "tests/import/conversion_model.h"
#include "tests/support/scratch_folder.h"

namespace quillkit {
namespace {

using namespace std::string_literals;
using testing::ElementsAre;

class LineReaderTest : public testing::Test {
 protected:
  std::vector<std::string> Lines(const std::string& file) const {
    LineReader reader;
    EXPECT_TRUE(reader.Open(folder_.Write("source", file).c_str()));
    std::vector<std::string> lines;
    for (TextSpan line; reader.Next(&line);) {
      EXPECT_EQ(line.data()[line.size()], '\0');
      lines.emplace_back(View(line));
      std::fill(line.begin(), line.end(), '\n');  // a line may be changed
    }
    EXPECT_FALSE(reader.HasFailed());
    return lines;
  }

  const ScratchFolder folder_;
};

TEST_F(LineReaderTest, EndsLinesAtNewlines) {
  const struct {
    std::string file;
    std::vector<std::string> lines;
  } cases[] = {
      {"", {}},
      {"\n", {"\n"}},
      {"a", {"a"}},
      {"a\nb", {"a\n", "b"}},
      {"a\n\n\nb\n", {"a\n", "\n", "\n", "b\n"}},
      // One carriage return right before a newline is folded away, any other stays.
      {"a\r\nb\r\n", {"a\n", "b\n"}},
      {"\r\n\r\n", {"\n", "\n"}},
      {"a\rb\r", {"a\rb\r"}},
      {"a\r\r\n\rb\n\r", {"a\r\n", "\rb\n", "\r"}},
      // A NUL ends the text of its line, and nothing more.
      {"a\0b\nc\n"s, {"a", "c\n"}},
      {"\0\nc"s, {"", "c"}},
      {"a\0\r\n\0"s, {"a", ""}},
      // No other character is special.
      {"a\x1A"
       "b\n\xFF\xFE\n\v\f\x85\n",
       {"a\x1A"
        "b\n",
        "\xFF\xFE\n", "\v\f\x85\n"}},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(Lines(each.file), each.lines) << testing::PrintToString(each.file);
  }
}

// A line holds 4094 characters, its newline among them.
TEST_F(LineReaderTest, CutsLongLines) {
  const auto x = [](std::size_t size) { return std::string(size, 'x'); };
  EXPECT_THAT(Lines(x(4093) + "\nb\n"), ElementsAre(x(4093) + "\n", "b\n"));
  EXPECT_THAT(Lines(x(4094) + "\nb\n"), ElementsAre(x(4094), "\n", "b\n"));
  EXPECT_THAT(Lines(x(4095) + "\nb\n"), ElementsAre(x(4094), "x\n", "b\n"));
  EXPECT_THAT(Lines(x(4093)), ElementsAre(x(4093)));
  EXPECT_THAT(Lines(x(4094)), ElementsAre(x(4094)));
  EXPECT_THAT(Lines(x(4097)), ElementsAre(x(4094), "xxx"));
  EXPECT_THAT(Lines(x(3 * 4094)), ElementsAre(x(4094), x(4094), x(4094)));
  // A carriage return is folded before characters are counted.
  EXPECT_THAT(Lines(x(4093) + "\r\nb"), ElementsAre(x(4093) + "\n", "b"));
  EXPECT_THAT(Lines(x(4094) + "\r\nb"), ElementsAre(x(4094), "\n", "b"));
  EXPECT_THAT(Lines(x(4093) + "\r" + "b"), ElementsAre(x(4093) + "\r", "b"));
  EXPECT_THAT(Lines(x(4092) + "\r\r\nb"), ElementsAre(x(4092) + "\r\n", "b"));
  EXPECT_THAT(Lines(x(4093) + "\r\r\nb"), ElementsAre(x(4093) + "\r", "\n", "b"));
  // NULs count as characters.
  EXPECT_THAT(Lines("a\0"s + x(4092) + "b\nc"), ElementsAre("a", "b\n", "c"));
}

// Files of many blocks, with lines of about as many characters as a line holds and of few.
TEST_F(LineReaderTest, FollowsTheModelAcrossBlocks) {
  for (unsigned seed = 0; seed < 12; ++seed) {
    std::mt19937 random(seed);
    std::string file;
    while (file.size() < 300'000) {
      const std::size_t lengths[] = {4088 + random() % 12, random() % 9000, random() % 40,
                                     random() % 40};
      const std::size_t length = lengths[random() % std::size(lengths)];
      file.append(length, static_cast<char>('a' + random() % 26));
      static const std::string kEnds[] = {"\n", "\n", "\r\n", "\r", "\r\r\n", "\0"s};
      file += kEnds[random() % (seed % 2 == 0 ? 5 : 6)];  // half the files without a NUL
    }
    EXPECT_EQ(Lines(file), model::Lines(file)) << "seed " << seed;
  }
}

TEST_F(LineReaderTest, OpensFilesOnly) {
  EXPECT_FALSE(LineReader().Open(nullptr));
  EXPECT_FALSE(LineReader().Open(""));
  EXPECT_FALSE(LineReader().Open(folder_.PathOf("missing").c_str()));
  EXPECT_FALSE(LineReader().Open(folder_.Path().string().c_str()));
}

}  // namespace
}  // namespace quillkit
