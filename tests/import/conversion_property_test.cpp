// The converters against the model, on files of random bytes.

#include <cstddef>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "tests/import/converter_fixture.h"

namespace quillkit {
namespace {

using namespace std::string_view_literals;

constexpr unsigned kFiles = 150;

// What files are made of, beside runs of one letter.
constexpr std::string_view kCommonPieces[] = {"\n", "\n",   "\r\n", "\r", " ",
                                              "  ", "\0"sv, "\"",   ",",  "\t"};
constexpr std::string_view kDelimitedPieces[] = {"Ann", "\"", ",", ",", ",", "\"Lee, Ann\"", " \n"};
constexpr std::string_view kDirectoryPieces[] = {
    "\ndn:",     "\ndn: x\n", "\ncn:", "\ncn: Ann\n", "\nmail:", "\nmail:b\n",
    "\nCN: Bob", "dn:",       "d",     "n",           ":"};
constexpr std::string_view kMailServerPieces[] = {"\nMailbox,",
                                                  "\nMailbox,",
                                                  "\n\"Mailbox\",",
                                                  "\nMailbox,Ann,Lee,Ann Lee,x,%SMTP:box1%X400:c\n",
                                                  "SMTP:",
                                                  "smtp:",
                                                  "%SMTP:box2%",
                                                  ",",
                                                  "\"Lee, Ann\",",
                                                  "\"\"",
                                                  "\nMailbox,,Lee,Ann Lee,",
                                                  ",\"SMTP:box3\"\n"};

// Lengths at which something is cut, and one more.
constexpr std::size_t kRuns[] = {1,  2,  9,  10, 11,  15,  16,  28,   31,
                                 32, 79, 80, 81, 252, 255, 256, 4000, 4094};

class RandomFile {
 public:
  explicit RandomFile(unsigned seed) : random(seed) {}

  std::size_t Below(std::size_t limit) { return random() % limit; }
  bool Flip() { return Below(2) == 0; }

  template <class Pieces>
  std::string Bytes(const Pieces& pieces) {
    std::string bytes;
    for (std::size_t left = Below(250); left > 0; --left) AppendPiece(bytes, pieces);
    return bytes;
  }

  model::Request Request() {
    model::Request request;
    request.isAdmin = Flip();
    request.clearFirst = Flip();
    request.skipHeader = Flip();
    request.targetBook = static_cast<std::int32_t>(Below(6));
    request.columnMap.resize(Below(6));
    for (std::int32_t& column : request.columnMap) column = static_cast<std::int32_t>(Below(8)) - 2;
    return request;
  }

 private:
  template <class Pieces>
  void AppendPiece(std::string& bytes, const Pieces& pieces) {
    switch (Below(8)) {
      case 0:
        bytes.append(kRuns[Below(std::size(kRuns) - (Below(4) == 0 ? 0 : 2))], 'x');
        break;
      case 1:
        bytes += static_cast<char>(Below(256));
        break;
      case 2:
      case 3:
        bytes += kCommonPieces[Below(std::size(kCommonPieces))];
        break;
      default:
        bytes += pieces[Below(std::size(pieces))];
    }
  }

  std::mt19937 random;
};

class ConversionPropertyTest : public ConverterTest {
 protected:
  template <class Pieces, class Model>
  void CompareWithModel(Converter converter, const Pieces& pieces, Model model) {
    for (unsigned seed = 0; seed < kFiles && !HasFailure(); ++seed) {
      SCOPED_TRACE(testing::Message() << "seed " << seed);
      RandomFile random(seed);
      const model::Request request = random.Request();
      const std::string file = random.Bytes(pieces);
      ExpectScript(converter, file, model(file, request), request);
    }
  }
};

TEST_F(ConversionPropertyTest, DelimitedTextFollowsTheModel) {
  CompareWithModel(Converter::kDelimited, kDelimitedPieces, model::DelimitedText);
}

TEST_F(ConversionPropertyTest, DirectoryExportFollowsTheModel) {
  CompareWithModel(Converter::kDirectory, kDirectoryPieces, model::DirectoryExport);
}

TEST_F(ConversionPropertyTest, MailServerExportFollowsTheModel) {
  CompareWithModel(Converter::kMailServer, kMailServerPieces, model::MailServerExport);
}

// A file of many blocks, and a script of many buffers.
TEST_F(ConversionPropertyTest, LongFilesFollowTheModel) {
  std::string file;
  for (unsigned seed = 0; file.size() < 600'000; ++seed) {
    file += RandomFile(seed).Bytes(kMailServerPieces);
    file += RandomFile(seed).Bytes(kDirectoryPieces);
  }
  for (const bool isAdmin : {true, false}) {
    model::Request request;
    request.isAdmin = isAdmin;
    ExpectScript(Converter::kDelimited, file, model::DelimitedText(file, request), request);
    ExpectScript(Converter::kDirectory, file, model::DirectoryExport(file, request), request);
    ExpectScript(Converter::kMailServer, file, model::MailServerExport(file, request), request);
  }
}

}  // namespace
}  // namespace quillkit
