#include "import/line_reader.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "tests/import/conversion_model.h"
#include "tests/support/scratch_folder.h"

namespace quillkit {
namespace {

using namespace std::string_literals;

class LineReaderTest : public testing::Test {
 protected:
  std::vector<std::string> Lines(const std::string& file) const {
    LineReader reader;
    EXPECT_TRUE(reader.Open(folder.Write("source", file).c_str()));
    std::vector<std::string> lines;
    for (TextSpan line; reader.Next(&line);) {
      EXPECT_EQ(line.data()[line.size()], '\0');
      lines.emplace_back(View(line));
      std::fill(line.begin(), line.end(), '\n');  // a line may be changed
    }
    EXPECT_FALSE(reader.HasFailed());
    return lines;
  }

  const ScratchFolder folder;
};

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

}  // namespace
}  // namespace quillkit
