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

TEST(Archive, ATextHasItsLengthInFrontAndComesBack) {
  const struct {
    std::size_t length;
    std::string head;
  } forms[] = {{0, "\0"s},
               {1, "\1"s},
               {254, "\xFE"s},
               {255, "\xFF\xFF\0"s},
               {256, "\xFF\0\1"s},
               {65533, "\xFF\xFD\xFF"s},
               {65534, "\xFF\xFF\xFF\xFE\xFF\0\0"s},
               {70000, "\xFF\xFF\xFF\x70\x11\1\0"s}};
  for (const auto& form : forms) {
    SCOPED_TRACE(form.length);
    std::string text(form.length, 'a');
    if (!text.empty()) text.back() = '\0';
    const std::string bytes = Stored(text);
    EXPECT_EQ(bytes, form.head + text);

    std::string loaded = "before";
    Archive whole{std::string_view(bytes)};
    whole.Exchange(loaded);
    EXPECT_EQ(loaded, text);
    EXPECT_FALSE(whole.Failed());

    Archive cut(std::string_view(bytes).substr(0, bytes.size() - 1));
    cut.Exchange(loaded);
    EXPECT_EQ(loaded, "");
    EXPECT_TRUE(cut.Failed());
  }
}

// Whatever the place where a stream ends, what stood whole before it is loaded, and nothing else.
TEST(Archive, ACutStreamGivesWhatStoodBeforeTheCut) {
  const std::uint32_t number = 0x11223344;
  const std::string text(300, 't');
  const std::string front = Stored(number) + Stored(text);
  const std::string bytes = front + Stored("field"s) + Stored(number);
  for (std::size_t length = 0; length <= bytes.size(); ++length) {
    SCOPED_TRACE(length);
    Archive loading(std::string_view(bytes).substr(0, length));
    std::uint32_t first = 1;
    std::string loadedText = "before";
    FixedText<11> field("before");
    std::uint32_t last = 1;
    loading.Exchange(first);
    loading.Exchange(loadedText);
    loading.Exchange(field);
    loading.Exchange(last);
    EXPECT_EQ(first, length >= 4 ? number : 0);
    EXPECT_EQ(loadedText, length >= front.size() ? text : "");
    EXPECT_EQ(field.View(), length >= front.size() + 6 ? "field" : "");
    EXPECT_EQ(last, length == bytes.size() ? number : 0);
    EXPECT_EQ(loading.Failed(), length < bytes.size());
    EXPECT_EQ(loading.Remaining(), 0U);
  }
}

TEST(Archive, CutsATextWhereItsFieldEnds) {
  const std::string bytes = Stored("0123456789abc"s) + "rest";
  Archive archive{std::string_view(bytes)};
  FixedText<11> field;
  archive.Exchange(field);
  EXPECT_EQ(field.View(), "0123456789");
  EXPECT_EQ(archive.Remaining(), 4U);
}

TEST(Archive, ACountIsBelievedAsFarAsTheBytesGo) {
  const std::string bytes(24, 'x');
  Archive archive{std::string_view(bytes)};
  EXPECT_TRUE(archive.CanHold(2, 12));
  EXPECT_FALSE(archive.Failed());
  EXPECT_FALSE(archive.CanHold(3, 12));
  EXPECT_TRUE(archive.Failed());

  std::string sink;
  EXPECT_TRUE(Archive(&sink).CanHold(0xFFFFFFFF, 12));
}

}  // namespace
}  // namespace quillkit
