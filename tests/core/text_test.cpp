#include <gtest/gtest.h>

#include "app/load_text.h"
#include "app/scaling.h"
#include "app/text.h"
#include "app/wide_string.h"

namespace tw {
namespace {

TEST(WideStringTest, GrowsByTheDeviceRule) {
  WideString s;
  EXPECT_EQ(s.Capacity(), 64);
  s.Assign(std::u16string(60, u'a'));
  EXPECT_EQ(s.Capacity(), 64) << "60 + 4 fits the first block";
  s.Assign(std::u16string(61, u'b'));
  EXPECT_EQ(s.Capacity(), 125) << "61 + 4 > 64 gives 61 + 64";
  EXPECT_EQ(s.View(), std::u16string(61, u'b'));
  s.Append(u"cd");
  EXPECT_EQ(s.Capacity(), 125);
  s.Append(std::u16string(60, u'e'));  // 63 + 60 + 4 > 125
  EXPECT_EQ(s.Capacity(), 63 + 60 + 64);
  EXPECT_EQ(s.Length(), 123);
  EXPECT_EQ(s.View().substr(0, 63), std::u16string(61, u'b') + u"cd");
  EXPECT_EQ(s.Text()[s.Length()], 0);
}

TEST(WideStringTest, CutsAtTheSixteenBitLimit) {
  WideString s;
  s.Assign(std::u16string(70000, u'x'));
  EXPECT_EQ(s.Length(), WideString::kMaxLength);
  EXPECT_EQ(s.Capacity(), 65535);
  s.Append(u"more");
  EXPECT_EQ(s.Length(), WideString::kMaxLength);
  EXPECT_EQ(s.Text()[WideString::kMaxLength], 0);

  WideString pair;  // a surrogate pair straddling the limit is dropped whole
  pair.Assign(std::u16string(WideString::kMaxLength - 1, u'y'));
  pair.Append(u"\xD83D\xDE00");
  EXPECT_EQ(pair.Length(), WideString::kMaxLength - 1);
}

TEST(WideStringTest, AssignFromItsOwnText) {
  WideString s(u"hello world");
  s.Assign(s.View().substr(6));
  EXPECT_EQ(s.View(), u"world");
  s.Append(s.View());
  EXPECT_EQ(s.View(), u"worldworld");
}

TEST(WideStringTest, FormatsLikeTheDeviceLibrary) {
  WideString s;
  s.Format(u"\"%s\"=dword:%d\r\n", u"Color", 0xFFFFFFFFu);
  EXPECT_EQ(s.View(), u"\"Color\"=dword:-1\r\n");
  s.Format(u"%slfHeight", u"FontCalPast");
  EXPECT_EQ(s.View(), u"FontCalPastlfHeight");
  s.Format(u"Filter %d|%5d|%-3d|%03d|%x|%X|%u|%%", 7, 42, 1, 5, 255, 255, 0xFFFFFFFFu);
  EXPECT_EQ(s.View(), u"Filter 7|   42|1  |005|ff|FF|4294967295|%");
  EXPECT_EQ(FormatText(u"%s", {std::u16string(5000, u'z')}).size(), 1023u);
}

TEST(ScalingTest, RoundsHalvesAwayFromZero) {
  EXPECT_EQ(ScaleValue(160, 96, false), 160);
  EXPECT_EQ(ScaleValue(160, 192, false), 320);
  EXPECT_EQ(ScaleValue(160, 131, true), 320);
  EXPECT_EQ(ScaleValue(-1, 96, false), -1);
  EXPECT_EQ(ScaleValue(1, 131, false), 1);
  EXPECT_EQ(ScaleValue(1, 144, false), 2);   // 1.5 rounds up
  EXPECT_EQ(ScaleValue(-1, 144, false), -2); // -1.5 rounds down
  EXPECT_EQ(ScaleValue(-7, 192, true), -14);
}

TEST(ParseLongTest, BehavesLikeWcstolWithThirtyTwoBitLong) {
  std::size_t used = 0;
  EXPECT_EQ(ParseLong(u"  -42xyz", 10, &used), -42);
  EXPECT_EQ(used, 5u);
  EXPECT_EQ(ParseLong(u"abc", 10, &used), 0);
  EXPECT_EQ(used, 0u);
  EXPECT_EQ(ParseLong(u"99999999999", 10), 2147483647);
  EXPECT_EQ(ParseLong(u"-99999999999", 10), -2147483647 - 1);
  EXPECT_EQ(ParseLong(u"0x1F", 16), 31);
  EXPECT_EQ(ParseUnsignedLong(u"300", 10) % 256, 44u);
  EXPECT_EQ(ParseUnsignedLong(u"-1", 10), 0xFFFFFFFFu);
  EXPECT_EQ(ParseUnsignedLong(u"99999999999", 10), 0xFFFFFFFFu);
}

TEST(Utf8Test, RoundTripsAndKeepsStrayBytes) {
  std::u16string text = u"Grüße Привет \xD83D\xDE00";
  EXPECT_EQ(Utf8ToUtf16(Utf16ToUtf8(text)), text);
  EXPECT_EQ(Utf8ToUtf16("caf\xE9"), u"caf\u00E9");
  EXPECT_EQ(Utf8ToUtf16("\xE2\x82"), u"\u00E2\u201A") << "a broken sequence falls back to Windows-1252";
}

class FixedLibrary : public TextLibrary {
 public:
  int Lookup(unsigned id, char16_t* buffer, int capacity) const override {
    if (id != 719) return 0;
    std::u16string_view text = u"English";
    int n = std::min<int>(static_cast<int>(text.size()), capacity - 1);
    std::copy_n(text.data(), n, buffer);
    buffer[n] = 0;
    return n;
  }
};

TEST(LoadTextTest, LoadsOrEmpties) {
  FixedLibrary library;
  WideString s(u"old");
  EXPECT_EQ(LoadText(&library, 719, s), 7);
  EXPECT_EQ(s.View(), u"English");
  EXPECT_EQ(LoadText(&library, 1, s), 0);
  EXPECT_TRUE(s.Empty());
  EXPECT_EQ(LoadText(nullptr, 719, s), 0);
}

}  // namespace
}  // namespace tw
