#include "import/line_reader.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "tests/support/scratch_folder.h"

namespace quillkit {
namespace {

// Lines around the largest size, longer and shorter ones, in files of many blocks.
TEST(LineReaderTest, ReadsLinesOfAnyLengthAcrossBlocks) {
  const ScratchFolder folder;
  for (unsigned seed = 0; seed < 12; ++seed) {
    std::mt19937 random(seed);
    std::string file;
    std::vector<std::string> lines;
    while (file.size() < 300'000) {
      const std::size_t lengths[] = {4088 + random() % 12, random() % 9000, random() % 40,
                                     random() % 40};
      std::string line(lengths[random() % 4], static_cast<char>('a' + random() % 26));
      if (random() % 4 == 0) line.insert(random() % (line.size() + 1), "\r");
      // Half the files have NULs.
      if (seed % 2 == 0 && random() % 4 == 0) line.insert(random() % (line.size() + 1), 1, '\0');
      file += line + (line.ends_with('\r') || random() % 2 == 0 ? "\r\n" : "\n");
      line += '\n';
      for (std::size_t at = 0; at < line.size(); at += 4094) {
        lines.emplace_back(line.substr(at, 4094).c_str());  // up to a NUL
      }
    }
    file += "end\r";
    lines.emplace_back("end\r");

    LineReader reader;
    ASSERT_TRUE(reader.Open(folder.Write("source", file).c_str()));
    std::vector<std::string> read;
    for (TextSpan line; reader.Next(&line);) {
      read.emplace_back(View(line));
      std::fill(line.begin(), line.end(), '\n');  // a line may be changed
    }
    EXPECT_FALSE(reader.HasFailed());
    EXPECT_EQ(read, lines) << "seed " << seed;
  }
}

}  // namespace
}  // namespace quillkit
