// The stream form of values and texts, and streams that are cut or lie.

#include "base/archive.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace quillkit {
namespace {

using namespace std::string_literals;

template <class Value>
std::string Stored(Value value) {
  std::string bytes;
  Archive archive(&bytes);
  archive.Exchange(value);
  return bytes;
}

TEST(Archive, StoresAValueInFourBytesTheLowestFirst) {
  EXPECT_EQ(Stored(std::uint32_t{0x01020384}), "\x84\x03\x02\x01"s);
  EXPECT_EQ(Stored(std::int32_t{-2}), "\xFE\xFF\xFF\xFF"s);
}

struct TextForm {
  std::size_t length;
  std::string head;
};

class ArchiveText : public testing::TestWithParam<TextForm> {};

TEST_P(ArchiveText, HasItsLengthInFrontAndComesBack) {
  std::string text(GetParam().length, 'a');
  if (!text.empty()) text.back() = '\0';
  const std::string bytes = Stored(text);
  EXPECT_EQ(bytes, GetParam().head + text);

  std::string loaded = "before";
  Archive archive{std::string_view(bytes)};
  archive.Exchange(loaded);
  EXPECT_EQ(loaded, text);
  EXPECT_EQ(archive.Remaining(), 0U);
  EXPECT_FALSE(archive.Failed());

  Archive cut(std::string_view(bytes).substr(0, bytes.size() - 1));
  cut.Exchange(loaded);
  EXPECT_EQ(loaded, "");
  EXPECT_TRUE(cut.Failed());
}

INSTANTIATE_TEST_SUITE_P(Lengths, ArchiveText,
                         testing::Values(TextForm{0, "\0"s}, TextForm{1, "\1"s},
                                         TextForm{254, "\xFE"s}, TextForm{255, "\xFF\xFF\0"s},
                                         TextForm{256, "\xFF\0\1"s},
                                         TextForm{65533, "\xFF\xFD\xFF"s},
                                         TextForm{65534, "\xFF\xFF\xFF\xFE\xFF\0\0"s},
                                         TextForm{65535, "\xFF\xFF\xFF\xFF\xFF\0\0"s},
                                         TextForm{70000, "\xFF\xFF\xFF\x70\x11\1\0"s}),
                         [](const auto& each) { return std::to_string(each.param.length); });

// Whatever the place where a stream ends, what stood whole before it is loaded, and nothing else.
TEST(Archive, ACutStreamGivesWhatStoodBeforeTheCut) {
  std::string bytes;
  Archive storing(&bytes);
  std::uint32_t number = 0x11223344;
  std::string text(300, 't');
  FixedText<11> field("field");
  storing.Exchange(number);
  storing.Exchange(text);
  storing.Exchange(field);
  storing.Exchange(number);
  constexpr std::size_t kTextEnd = 4 + 3 + 300;
  constexpr std::size_t kFieldEnd = kTextEnd + 6;

  for (std::size_t length = 0; length <= bytes.size(); ++length) {
    SCOPED_TRACE(length);
    Archive loading(std::string_view(bytes).substr(0, length));
    std::uint32_t first = 1;
    std::string loadedText = "before";
    FixedText<11> loadedField("before");
    std::uint32_t last = 1;
    loading.Exchange(first);
    loading.Exchange(loadedText);
    loading.Exchange(loadedField);
    loading.Exchange(last);
    EXPECT_EQ(first, length >= 4 ? number : 0);
    EXPECT_EQ(loadedText, length >= kTextEnd ? text : "");
    EXPECT_EQ(loadedField.View(), length >= kFieldEnd ? "field" : "");
    EXPECT_EQ(last, length == bytes.size() ? number : 0);
    EXPECT_EQ(loading.Failed(), length < bytes.size());
    EXPECT_EQ(loading.Remaining(), 0U);
  }
}

TEST(Archive, ALengthBeyondTheStreamFailsForGood) {
  for (const std::string& head : {"\xFE"s, "\xFF\xFD\xFF"s, "\xFF\xFF\xFF\xFF\xFF\xFF\xFF"s}) {
    const std::string bytes = head + "\1a\1b";
    Archive archive{std::string_view(bytes)};
    for (int i = 0; i < 2; ++i) {
      std::string text = "before";
      archive.Exchange(text);
      EXPECT_EQ(text, "");
      EXPECT_TRUE(archive.Failed());
    }
  }
}

TEST(Archive, CutsATextWhereItsFieldEnds) {
  const std::string bytes = Stored("0123456789abc"s) + Stored("next"s);
  Archive archive{std::string_view(bytes)};
  FixedText<11> field;
  archive.Exchange(field);
  EXPECT_EQ(field.View(), "0123456789");
  std::string next;
  archive.Exchange(next);
  EXPECT_EQ(next, "next");
}

TEST(Archive, ACountIsBelievedAsFarAsTheBytesGo) {
  const std::string bytes(24, 'x');
  Archive archive{std::string_view(bytes)};
  EXPECT_TRUE(archive.CanHold(0, 100));
  EXPECT_TRUE(archive.CanHold(2, 12));
  EXPECT_FALSE(archive.Failed());
  EXPECT_FALSE(archive.CanHold(3, 12));
  EXPECT_TRUE(archive.Failed());

  std::string sink;
  EXPECT_TRUE(Archive(&sink).CanHold(0xFFFFFFFF, 12));
}

}  // namespace
}  // namespace quillkit
